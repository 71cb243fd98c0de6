#pragma once
// The test station with its desktop built over it, started as the program
// starts it.

#include "acquisition/startup.h"
#include "test_station.h"
#include "ui/desktop.h"
#include "ui/main_view.h"
#include "ui/panel_window.h"

#include <QCoreApplication>
#include <QWidget>

namespace uitest {

struct Station : testkit::Station {
    // The views go before the workstation.
    ui::Desktop desktop;
    bool loaded = false;

    Station() {
        desktop.attach(ws);
        loaded = acq::Form_Load(ws);
    }
    ui::MainView* main() const { return desktop.main(); }
    ui::PanelWindow* window(const QString& panel) const { return desktop.panel(panel); }
    // The widget of a control by its object name on one panel.
    template <class W = QWidget> W* widgetOf(const QString& panel, const QString& name) const {
        QWidget* top = panel == "fm_Gas_Chart" ? static_cast<QWidget*>(main()) : window(panel);
        return top ? top->findChild<W*>(name) : nullptr;
    }
};

inline void settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

} // namespace uitest
