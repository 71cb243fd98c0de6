#pragma once
// The two tools that change which rows the job holds: place holders for the
// packets the link missed, and deletion of a stretch chosen on the chart.

class Workstation;

namespace store {

// Deletes the stretch between the two chosen rows of the chart, the record
// one beyond each end included, after the user agrees. The whole stretch
// goes in one transaction: a kill in the middle leaves the job as it was.
void cmd_del_from_db_Click(Workstation& ws);

// Fills every gap of packet numbers with place holder rows, in batches,
// letting the event loop run between them. False when the data base was
// busy and nothing was done.
bool Add_Missing_Packets(Workstation& ws);

} // namespace store
