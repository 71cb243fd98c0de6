#pragma once
// The real time data viewer more_data: every packet field in its frame, the
// WITS list and the live terminal to the instrument.

#include "ui/panel_window.h"

class Workstation;

namespace ui {

class MoreDataView : public PanelWindow {
  public:
    MoreDataView(Workstation& ws, QWidget* owner);
};

} // namespace ui
