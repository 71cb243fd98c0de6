#include "ui/desktop.h"

#include "acquisition/workstation.h"
#include "ui/widget_dialogs.h"

#include <QMainWindow>

namespace ui {

Desktop::Desktop() : dialogs_(std::make_unique<WidgetDialogs>()) {}
Desktop::~Desktop() = default;

platform::Dialogs& Desktop::dialogs() {
    return *dialogs_;
}

void Desktop::attach(Workstation& ws) {
    ws_ = &ws;
    main_ = std::make_unique<QMainWindow>();
    main_->setObjectName("fm_Gas_Chart");
}

void Desktop::showMain() {
    if (!main_) return;
    main_->setWindowTitle(ws_->fm_Gas_Chart.form.caption());
    main_->resize(1280, 720);
    main_->show();
}

} // namespace ui
