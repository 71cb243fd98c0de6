#pragma once
// Start-up and exit of the workstation.

#include <QString>

class Workstation;

namespace acq {

// The main screen's title: the long form, or the short one when minimized.
QString MainTitle(const Workstation& ws);

// Runs the start-up steps in order. Returns false when another copy of the
// program already runs in this folder (after the box that says so).
bool Form_Load(Workstation& ws);

// The close of the main screen. Returns true when the operator said Yes and
// everything is closed; false when the program goes on.
bool Form_Unload(Workstation& ws);

// The end the system asks for (shut-down, a closed terminal): no question;
// settings and zones are saved and everything closed as after Yes.
void StopWithoutQuestion(Workstation& ws);

} // namespace acq
