#pragma once
// Which handler a control's event calls. The handlers live with the logic
// (acquisition/, store/, config/ ...); this is the one table that ties them
// to the controls of the panels.

#include "ui/binder.h"

class Workstation;

namespace forms {
class Panel;
}

namespace ui {

// The events of control c of panel for the workstation ws: every row of the
// table for that panel and control name, the index of an array element
// handed on to handlers that take one.
Events eventsFor(Workstation& ws, const forms::Panel& panel, const forms::Control& c);

// Whether the table has any row for that panel and control name.
bool hasRoute(const QString& panel, const QString& control);

} // namespace ui
