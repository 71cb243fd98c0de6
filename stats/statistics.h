#pragma once
// The daily statistics and the joint tally: one text report written from the
// job's records, on a countdown or on request, shown on the setup panel's
// Statistics tab.

#include <QString>

class Workstation;

namespace stats {

// Each second: counts stats_countdown down and runs the report when it ends.
void tmr_calc_stats_Timer(Workstation& ws);
// "Calculate Statistics Now": the report starts at the next tick.
void cmd_calculate_stats_Click(Workstation& ws);
// Enter in txt_autotally_minutes or leaving it: under 20 minutes is 20.
void txt_autotally_minutes_Commit(Workstation& ws);
// Every change of txt_autotally_minutes starts the countdown again.
void txt_autotally_minutes_Change(Workstation& ws);
// Picks the report file.
void cmd_autotally_browse_Click(Workstation& ws);

// The whole run: heading, daily statistics, tally, and the report read back
// into txt_stats_output.
void Generate_Stats_Report(Workstation& ws);

// A status line of the run in txt_stats, after the time of day.
void Stats_Status(Workstation& ws, const QString& text);
// A line of the finished report in txt_stats_output.
void Stats_Output_Line(Workstation& ws, const QString& text);
// Many lines at once, each ending in CR LF: the box is set once, as it stands
// after the last of them.
void Stats_Output_Text(Workstation& ws, const QString& lines);

} // namespace stats
