#pragma once
// The information box fm_help: heading, scrolling messages and progress bar
// of every long job. It stands in the middle of the screen: its Timer1
// centres it every two seconds.

#include "ui/panel_window.h"

class Workstation;

namespace ui {

class HelpView : public PanelWindow {
  public:
    HelpView(Workstation& ws, QWidget* owner);
    // Left = screen width / 2 - box width / 2, top likewise.
    void centre();

  protected:
    void placeOnShow() override;
};

} // namespace ui
