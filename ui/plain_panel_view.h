#pragma once
// A panel window laid out straight from its model's list of controls: the
// WITS panel, and the chromatograph viewer until it has a canvas of its own.

#include "ui/panel_window.h"

class Workstation;

namespace ui {

class PlainPanelView : public PanelWindow {
  public:
    PlainPanelView(Workstation& ws, forms::Panel& panel, QWidget* owner);
};

} // namespace ui
