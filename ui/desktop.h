#pragma once
// The desktop: the real dialogs and the views of every panel.

#include "platform/dialogs.h"

#include <memory>

class Workstation;

namespace ui {

class MainView;
class PanelWindow;
class WidgetDialogs;

class Desktop {
  public:
    // Needs the application object; sets the look of all screens.
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    platform::Dialogs& dialogs();
    // Builds the views over the workstation's panels; each panel window
    // shows as its form says.
    void attach(Workstation& ws);
    // Removes every view. The views must go before the workstation does.
    void detach();
    void showMain();

    MainView* main() const { return main_; }
    // The window of a panel by its name (fm_setup, more_data ...).
    PanelWindow* panel(const QString& name) const;

  private:
    std::unique_ptr<WidgetDialogs> dialogs_;
    MainView* main_ = nullptr;
    Workstation* ws_ = nullptr;
};

} // namespace ui
