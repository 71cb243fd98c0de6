#pragma once
// The information box of every long job.

#include <QString>

class Workstation;

namespace station {

void help_msg(Workstation& ws, const QString& text);
// Closing the box only hides it: a long job goes on and may show it again.
// Returns true: the close is cancelled.
bool fm_help_QueryUnload(Workstation& ws);
// Timer1 of the box: its view keeps it in the middle of the screen.
void fm_help_Timer1_Timer(Workstation& ws);

} // namespace station
