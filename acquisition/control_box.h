#pragma once
// The handlers of the main screen's control box.

class Workstation;

namespace acq {

void cmd_refresh_Click(Workstation& ws);
// Enter in the box or leaving it.
void txt_refresh_timer_Commit(Workstation& ws);
void cmd_off_bottom_overide_Click(Workstation& ws);
void cmd_pumps_Click(Workstation& ws);
void cmd_setup_Click(Workstation& ws);
void cmd_moredata_Click(Workstation& ws);
void cmd_WITS_info_Click(Workstation& ws);
void cmd_redraw_chart_Click(Workstation& ws);
// A mouse press on the main screen: left hides the control box, right shows it.
void fm_Gas_Chart_MouseDown(Workstation& ws, bool leftButton);
// The end of a drag of the control box (canvas twips): its place goes to
// the configuration file.
void Frame6_MouseUp(Workstation& ws, int Button, double X, double Y);

} // namespace acq
