#include "ui/panel_window.h"

#include "forms/panel.h"

#include <QCloseEvent>
#include <QPointer>
#include <QScreen>

namespace ui {

PanelWindow::PanelWindow(forms::Panel& panel, QWidget* owner)
    : QWidget(owner, Qt::Window | Qt::Dialog), panel_(panel) {
    setObjectName(panel.name());
    setWindowTitle(panel.form.caption());
    QPointer<PanelWindow> self(this);
    panel.form.listen([self](const forms::Control&, forms::Prop p) {
        if (!self) return;
        if (p == forms::Prop::Caption) self->setWindowTitle(self->panel_.form.caption());
        if (p == forms::Prop::Visible) self->followForm();
    });
}

void PanelWindow::followForm() {
    if (!panel_.form.visible()) {
        hide();
        return;
    }
    if (!placed_) {
        placeOnShow();
        placed_ = true;
    }
    // Shown non-modally, on top of the main screen.
    show();
    raise();
    activateWindow();
}

QSize PanelWindow::preferredSize(const QSize& room) const {
    return sizeHint().expandedTo(minimumSizeHint()).boundedTo(room * 0.92);
}

void PanelWindow::placeOnShow() {
    const QScreen* s = screen();
    if (!s) return;
    const QRect avail = s->availableGeometry();
    resize(preferredSize(avail.size()));
    move(avail.center() - QPoint(width() / 2, height() / 2));
}

void PanelWindow::closeEvent(QCloseEvent* e) {
    e->ignore();
    panel_.form.setVisible(false);
}

} // namespace ui
