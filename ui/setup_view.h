#pragma once
// The setup panel fm_setup, built from its model: one page of tab_setup per
// tab the model names, on each page the frames that stand on it, in each
// frame its controls. A frame holding a tab control (the lag zones on
// SSTab1) gets one page per zone. New controls of the model show up here
// without a change of this view.

#include "ui/panel_window.h"

class QTabWidget;
class Workstation;

namespace ui {

class SetupView : public PanelWindow {
  public:
    SetupView(Workstation& ws, QWidget* owner);
    QTabWidget* tabs() const { return tabs_; }

    // As large as the fullest page wants, within the room.
    QSize preferredSize(const QSize& room) const override;

  private:
    QTabWidget* tabs_ = nullptr;
};

} // namespace ui
