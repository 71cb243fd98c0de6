#pragma once
// What the operator sees of the newest packet: the data viewer, the alarm
// box, the raw terminal, and the two logs.

#include <QString>

class Workstation;

namespace acq {

void parse_err_str(Workstation& ws);
void fill_vis_fields(Workstation& ws);
void clear_vis_fields(Workstation& ws);
void disply_text(Workstation& ws, const QString& text);
void disply_text_alarms(Workstation& ws, const QString& text);
void write_function_log(Workstation& ws, const QString& text);

// Screen and log words of an instrument alarm number.
QString AlarmLogText(int number);
QString AlarmDisplayText(int number);

} // namespace acq
