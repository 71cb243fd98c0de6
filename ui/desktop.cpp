#include "ui/desktop.h"

#include "ui/chro_view.h"
#include "ui/help_view.h"
#include "ui/look.h"
#include "ui/main_view.h"
#include "ui/more_data_view.h"
#include "ui/plain_panel_view.h"
#include "ui/printer.h"
#include "ui/secure_view.h"
#include "ui/setup_view.h"
#include "ui/widget_dialogs.h"
#include "workstation/workstation.h"

#include <QScreen>

namespace ui {

Desktop::Desktop() : dialogs_(std::make_unique<WidgetDialogs>()) {
    applyLook();
}

Desktop::~Desktop() {
    detach();
}

platform::Dialogs& Desktop::dialogs() {
    return *dialogs_;
}

void Desktop::attach(Workstation& ws) {
    detach();
    ws_ = &ws;
    ws.services.print_picture = &PrintOnDefaultPrinter;
    main_ = new MainView(ws);
    main_->setAttribute(Qt::WA_DeleteOnClose, false);
    // The panel windows belong to the main screen and stand above it.
    PanelWindow* windows[] = {
        new ChroView(ws, main_),     new HelpView(ws, main_),
        new SetupView(ws, main_),    new SecureView(ws, main_),
        new MoreDataView(ws, main_), new PlainPanelView(ws, ws.fm_WITS, main_),
    };
    for (PanelWindow* w : windows) w->followForm();
}

void Desktop::detach() {
    delete main_;
    main_ = nullptr;
    ws_ = nullptr;
}

void Desktop::showMain() {
    if (!main_) return;
    // The whole screen: maximized where a window manager does that, and the
    // same room where none does.
    if (const QScreen* s = main_->screen()) main_->setGeometry(s->availableGeometry());
    main_->showMaximized();
}

PanelWindow* Desktop::panel(const QString& name) const {
    return main_ ? main_->findChild<PanelWindow*>(name, Qt::FindDirectChildrenOnly) : nullptr;
}

} // namespace ui
