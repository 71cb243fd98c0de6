#pragma once
// The three job buttons of the main screen: new, open and save as. Each
// spans the store, the depth arrays and the chart, so it lives up here.

class Workstation;

namespace acq {

void cmd_new_db_Click(Workstation& ws);
void cmd_open_db_Click(Workstation& ws);
void cmd_save_database_Click(Workstation& ws);

} // namespace acq
