#include "ui/pictures.h"

#include "ui/desktop.h"
#include "ui/main_view.h"
#include "ui/panel_window.h"
#include "ui/setup_view.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QScreen>
#include <QSignalBlocker>
#include <QTabWidget>

namespace ui {

namespace {

const char* const kPanels[] = {"more_data", "fm_help", "fm_WITS", "fm_secure", "fm_chro"};

// Written whole or not at all: a reader never finds half a picture.
bool WriteWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly)) return false;
    f.write(bytes);
    return f.commit();
}

bool SavePicture(QWidget* w, const QString& path) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    return w->grab().save(&buffer, "PNG") && WriteWhole(path, png);
}

// The words of a control on one line.
QString Words(QWidget* w) {
    QString s;
    if (auto* l = qobject_cast<QLabel*>(w))
        s = l->text();
    else if (auto* e = qobject_cast<QLineEdit*>(w))
        s = e->text();
    else if (auto* b = qobject_cast<QAbstractButton*>(w))
        s = b->text();
    else if (auto* g = qobject_cast<QGroupBox*>(w))
        s = g->title();
    else if (auto* p = qobject_cast<QPlainTextEdit*>(w))
        s = p->toPlainText();
    else if (auto* lw = qobject_cast<QListWidget*>(w)) {
        QStringList items;
        for (int i = 0; i < lw->count(); ++i) items << lw->item(i)->text();
        s = items.join(" | ");
    } else
        return QString();
    s.replace("\r\n", "\\n").replace('\n', "\\n").replace('\r', "\\n").replace('\t', ' ');
    return s;
}

void ListWords(QWidget* top, const QString& window, QString& out) {
    for (QWidget* w : top->findChildren<QWidget*>()) {
        if (w->objectName().isEmpty() || w->objectName().startsWith("qt_")) continue;
        const QString words = Words(w);
        if (words.isNull()) continue;
        out += window + "." + w->objectName() + "\t" + words + "\n";
    }
}

QString FileName(QString s) {
    for (QChar& c : s)
        if (!c.isLetterOrNumber() && c != '_') c = '_';
    return s;
}

} // namespace

ScreenPictures::ScreenPictures(Desktop& desktop, QString dir, int periodMs)
    : desktop_(desktop), dir_(std::move(dir)) {
    timer_.setInterval(periodMs);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { saveNow(); });
    timer_.start();
}

bool ScreenPictures::saveNow() {
    MainView* main = desktop_.main();
    if (!main || !QDir().mkpath(dir_)) return false;
    const QString at = dir_ + "/";
    bool ok = SavePicture(main, at + "fm_Gas_Chart.png");
    QString words;
    ListWords(main, "fm_Gas_Chart", words);

    const QSize room = main->screen() ? main->screen()->availableSize() : QSize(1366, 768);
    auto sized = [&](PanelWindow* w) {
        // A panel never shown yet has no size of its own: it is pictured
        // at the size it would open with.
        if (w->isVisible()) return;
        // A hidden window is not laid out again as its words change.
        if (w->layout()) w->layout()->activate();
        w->resize(w->preferredSize(room).expandedTo(w->minimumSizeHint()));
    };
    for (const char* name : kPanels) {
        PanelWindow* w = desktop_.panel(name);
        if (!w) continue;
        sized(w);
        ok = SavePicture(w, at + name + ".png") && ok;
        ListWords(w, name, words);
    }
    if (auto* setup = dynamic_cast<SetupView*>(desktop_.panel("fm_setup"))) {
        sized(setup);
        QTabWidget* tabs = setup->tabs();
        // Leafing through the tabs for the pictures is not the operator's
        // choice of tab: the panel's model is not told.
        const QSignalBlocker quiet(tabs);
        const int was = tabs->currentIndex();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            ok = SavePicture(setup, at + "fm_setup_" + QString::number(i) + "_" +
                                        FileName(tabs->tabText(i)) + ".png") &&
                 ok;
        }
        tabs->setCurrentIndex(was);
        ListWords(setup, "fm_setup", words);
    }
    return WriteWhole(at + "screens.txt", words.toUtf8()) && ok;
}

} // namespace ui
