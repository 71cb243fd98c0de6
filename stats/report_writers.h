#pragma once
// The two parts of the report that read the job, each over its own pass.

class Workstation;

namespace stats {

class ReportFile;

// The daily statistics, one block a day from the report hour; refused for a
// job of less than a day's records (14450).
void Write_Daily_Stats(Workstation& ws, ReportFile& file);
// The joint tally.
void Write_Tally(Workstation& ws, ReportFile& file);

} // namespace stats
