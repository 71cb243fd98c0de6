// The joint tally: every connection found in one pass over the records, then
// a line for each.
#include "stats/report_file.h"
#include "stats/report_writers.h"
#include "stats/statistics.h"
#include "stats/stats_data.h"
#include "stats/tally.h"
#include "workstation/workstation.h"

namespace stats {

namespace {

void Tally(Workstation& ws, ReportFile& file, StatsData& d, int& pt) {
    pt = 1;
    if (!Open_Stats_Database(ws, d)) return;
    pt = 2;
    auto& rs = d.rs;
    rs.MoveFirst();
    Stats_Status(ws, "Gathering Tally Information");
    TallyScan scan;
    StatsTurns turns(ws, d, 50, 100);
    pt = 3;
    while (!rs.Eof()) {
        turns.turn();
        if (scan.take(rs.Fields(d.depth), rs.Fields(d.bit))) {
            scan.connectionAt(rs.Fields(d.dt).toDate());
            if (scan.full()) break;
        }
        rs.MoveNext();
    }
    pt = 4;
    Close_Stats_Database(d);
    Stats_Status(ws, "DB Scan for Tally complete");
    pt = 5;
    file.line(QString());
    file.lines(TallyLines(scan.arrays(), ws.fm_setup.cmb_Report_Time.text()));
    Stats_Status(ws, "Tally Completed");
}

} // namespace

void Write_Tally(Workstation& ws, ReportFile& file) {
    RunStatsPart(ws, "Tally Err: ", [&](StatsData& d, int& pt) { Tally(ws, file, d, pt); });
}

} // namespace stats
