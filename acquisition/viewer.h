#pragma once
// The data viewer's own handlers: the live terminal, the close box and the
// two links at its foot.

#include <QChar>

class Workstation;

namespace acq {

// A key typed in text_window goes to the instrument as it stands; it is not
// echoed, the terminal shows only what comes back.
void text_window_KeyPress(Workstation& ws, QChar key);
// Closing the viewer hides it, so its labels live for the whole run. Returns
// true: the close is cancelled.
bool more_data_QueryUnload(Workstation& ws);
// The error log and the help file in the system's viewer; a missing file is
// the viewer's to report.
void lbl_open_errors_Click(Workstation& ws);
void lbl_help_Click(Workstation& ws);

} // namespace acq
