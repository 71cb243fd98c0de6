#pragma once
// Which log files are made, under which names and when: by hand from the
// main screen, or every so many minutes by tmr_autogen.

class Workstation;

namespace products {

void cmd_gen_log_files_Click(Workstation& ws);
// Each second: the countdown, the colour of the folder box, and a run when
// the count ends.
void tmr_autogen_Timer(Workstation& ws);
// The minutes box on leaving it: the interval, the count, the timer.
void txt_autogen_las_LostFocus(Workstation& ws);
// A last 48 hours box can be on only while its main box is.
void ck_gen_file_Click(Workstation& ws);

} // namespace products
