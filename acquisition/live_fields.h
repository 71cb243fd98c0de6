#pragma once
// What the operator sees of the newest packet: the data viewer, the alarm
// box, the raw terminal, and the two logs.

#include "workstation/messages.h"

#include <QString>

class Workstation;

namespace acq {

void parse_err_str(Workstation& ws);
void fill_vis_fields(Workstation& ws);
void clear_vis_fields(Workstation& ws);

// Screen and log words of an instrument alarm number.
QString AlarmLogText(int number);
QString AlarmDisplayText(int number);

} // namespace acq
