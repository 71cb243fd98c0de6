#pragma once
// The login panel fm_secure: name, password (shown as stars) and the send
// button; Enter in the password box sends as the button does.

#include "ui/panel_window.h"

class Workstation;

namespace ui {

class SecureView : public PanelWindow {
  public:
    SecureView(Workstation& ws, QWidget* owner);
};

} // namespace ui
