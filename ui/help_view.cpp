#include "ui/help_view.h"

#include "ui/control_widgets.h"
#include "workstation/workstation.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace ui {

HelpView::HelpView(Workstation& ws, QWidget* owner) : PanelWindow(ws.fm_help, owner) {
    auto& h = ws.fm_help;
    auto* page = new QVBoxLayout(this);
    auto* heading = qobject_cast<QLabel*>(makeBound(ws, h, h.lbl_help, this));
    QFont f = heading->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.2);
    heading->setFont(f);
    heading->setWordWrap(true);
    page->addWidget(heading);
    auto* text = qobject_cast<QPlainTextEdit*>(makeBound(ws, h, h.txt_help, this));
    text->setReadOnly(true);
    text->setMinimumSize(fontMetrics().horizontalAdvance(QStringLiteral("M")) * 40,
                         fontMetrics().lineSpacing() * 12);
    page->addWidget(text, 1);
    page->addWidget(makeBound(ws, h, h.pgbar, this));
    // The box's own timer keeps it in the middle while it stands.
    if (QTimer* t = ws.timer(QStringLiteral("fm_help.Timer1")))
        connect(t, &QTimer::timeout, this, &HelpView::centre);
}

void HelpView::centre() {
    const QScreen* s = screen();
    if (!s) return;
    const QRect g = s->geometry();
    move(g.left() + g.width() / 2 - frameGeometry().width() / 2,
         g.top() + g.height() / 2 - frameGeometry().height() / 2);
}

void HelpView::placeOnShow() {
    resize(sizeHint());
    centre();
}

} // namespace ui
