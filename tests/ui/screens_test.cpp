// Every screen at the two screen sizes of the logging unit, checked for words
// that do not fit their control.
#include "acquisition/live_fields.h"
#include "acquisition/parser.h"
#include "station.h"
#include "tools/common/drilling_model.h"
#include "ui/setup_view.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabWidget>
#include <gtest/gtest.h>

using uitest::Station;

namespace {

const QSize kScreens[] = {{1366, 768}, {1920, 1080}};

// Controls whose words do not fit: narrower or lower than the least they
// need. A label that wraps its words needs only its height.
QStringList clipped(QWidget* top) {
    QStringList out;
    for (QWidget* w : top->findChildren<QWidget*>()) {
        if (!w->isVisibleTo(top)) continue;
        // A short entry shows whole; a long one (a path) may scroll.
        if (auto* e = qobject_cast<QLineEdit*>(w)) {
            const int need = e->fontMetrics().horizontalAdvance(e->text()) + 10;
            if (e->text().size() <= 16 && e->width() < need)
                out << QStringLiteral("%1 \"%2\" %3 < %4")
                           .arg(e->objectName(), e->text(), QString::number(e->width()),
                                QString::number(need));
            continue;
        }
        auto* label = qobject_cast<QLabel*>(w);
        if (!label && !qobject_cast<QAbstractButton*>(w) && !qobject_cast<QGroupBox*>(w)) continue;
        const QSize need = w->minimumSizeHint();
        const bool narrow = w->width() < need.width() && !(label && label->wordWrap());
        if (narrow || w->height() < need.height())
            out << QStringLiteral("%1 %2x%3 < %4x%5")
                       .arg(w->objectName(), QString::number(w->width()),
                            QString::number(w->height()), QString::number(need.width()),
                            QString::number(need.height()));
    }
    return out;
}

std::string said(const QStringList& l) {
    return l.join(QStringLiteral("; ")).toStdString();
}

// A page that scrolls sideways hides part of itself at that size.
bool scrollsSideways(QWidget* top) {
    for (auto* area : top->findChildren<QScrollArea*>())
        if (area->isVisibleTo(top) && area->widget() &&
            area->widget()->minimumSizeHint().width() > area->viewport()->width())
            return true;
    return false;
}

// Packets of the drilling model through the parser onto the screens, as
// the intake tick does with what the instrument sends.
void feedPackets(Workstation& ws, int count) {
    drill::Model model;
    for (int i = 0; i < count; ++i) {
        const QString line = drill::Model::PacketLine(model.next());
        station::disply_text(ws, line);
        ws.packet.Gline_buffer += line;
        acq::Parse_Ombri_String(ws);
        acq::fill_vis_fields(ws);
    }
}

} // namespace

TEST(Screens, EveryScreenFitsItsWordsAtBothSizes) {
    Station st;
    ASSERT_TRUE(st.loaded);
    // An hour of drilling through the parser, as the instrument sends it.
    feedPackets(st.ws, 40);

    for (const QSize screen : kScreens) {
        const QString at = QStringLiteral("%1x%2").arg(screen.width()).arg(screen.height());

        st.main()->showNormal();
        st.main()->resize(screen * 0.92);
        uitest::settle();
        EXPECT_EQ(said(clipped(st.main())), "") << "main " << at.toStdString();

        for (const char* panel : {"more_data", "fm_help", "fm_WITS", "fm_secure"}) {
            ui::PanelWindow* w = st.window(panel);
            w->panel().form.setVisible(true);
            w->resize(w->preferredSize(screen));
            uitest::settle();
            EXPECT_LE(w->minimumSizeHint().width(), screen.width()) << panel;
            EXPECT_EQ(said(clipped(w)), "") << panel << " " << at.toStdString();
            w->panel().form.setVisible(false);
        }

        auto* setup = static_cast<ui::SetupView*>(st.window("fm_setup"));
        setup->panel().form.setVisible(true);
        setup->resize(setup->preferredSize(screen));
        QTabWidget* tabs = setup->tabs();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            // Drawn as on screen: a page shown for the first time is laid out.
            setup->grab();
            uitest::settle();
            const QString tab = tabs->tabText(i);
            EXPECT_EQ(said(clipped(tabs->currentWidget())), "")
                << tab.toStdString() << " " << at.toStdString();
            EXPECT_FALSE(scrollsSideways(tabs->currentWidget()))
                << tab.toStdString() << " " << at.toStdString();
        }
        setup->panel().form.setVisible(false);
    }
}
