#include "ui/plain_panel_view.h"

#include "forms/panel.h"
#include "ui/control_widgets.h"

#include <QGridLayout>

namespace ui {

PlainPanelView::PlainPanelView(Workstation& ws, forms::Panel& panel, QWidget* owner)
    : PanelWindow(panel, owner) {
    auto* grid = new QGridLayout(this);
    layoutControls(ws, panel, panel.controls(), grid);
    grid->setRowStretch(grid->rowCount(), 1);
    setMinimumSize(480, 240);
}

} // namespace ui
