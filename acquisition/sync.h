#pragma once
// The bulk download: the instrument's own data file pulled over the serial
// port into KW_TEMP.TXT and merged into the job.

class Workstation;

namespace acq {

void Sync_with_Kettlewick(Workstation& ws);
void cmd_sync_kettlewick_Click(Workstation& ws);

} // namespace acq
