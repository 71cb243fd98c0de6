#pragma once
// The desktop: the real dialogs and the views of every panel.

#include "platform/dialogs.h"

#include <memory>

class Workstation;
class QMainWindow;

namespace ui {

class WidgetDialogs;

class Desktop {
  public:
    Desktop();
    ~Desktop();
    platform::Dialogs& dialogs();
    // Builds the views over the workstation's panels.
    void attach(Workstation& ws);
    void showMain();

  private:
    std::unique_ptr<WidgetDialogs> dialogs_;
    std::unique_ptr<QMainWindow> main_;
    Workstation* ws_ = nullptr;
};

} // namespace ui
