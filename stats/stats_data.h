#pragma once
// The report's own connection to the job file, apart from the live one, and
// the turns it gives the event loop while it reads.

#include "db/database.h"
#include "db/recordset.h"
#include "depth/pass_rhythm.h"

#include <QString>
#include <functional>
#include <memory>

class Workstation;

namespace stats {

// The open data of one pass: the job's records in packet order.
struct StatsData {
    db::Database db;
    db::Recordset rs;
    // Field numbers of the columns the passes read.
    int depth = -1, bit = -1, minFt = -1, gas = -1, date = -1, time = -1, dt = -1;
};

// True when the data is open with at least six records; fewer is the status
// "Not enough data to build a chart" and nothing stays open.
bool Open_Stats_Database(Workstation& ws, StatsData& d);
void Close_Stats_Database(StatsData& d);

// Runs one part of the report over data of its own. A failure goes to the
// error log as prefix + the error + " Err pt: " + how far the part got, and
// the data is closed.
void RunStatsPart(Workstation& ws, const QString& prefix,
                  const std::function<void(StatsData&, int& pt)>& part);

// The event loop's turns during a pass, and the information box's bar moved
// from `from` to `to` percent as the pass goes through the records.
class StatsTurns {
  public:
    StatsTurns(Workstation& ws, const StatsData& d, int from, int to);
    // Each record: the loop gets its turn when one is due.
    void turn() {
        if ((++records_ & kEvery) == 0) due();
    }

  private:
    // Looking at the clock costs more than a record does: every 256th.
    static constexpr unsigned kEvery = 255;
    void due();

    Workstation& ws_;
    const StatsData& d_;
    depth::PassRhythm rhythm_;
    int from_, to_;
    unsigned records_ = 0;
};

} // namespace stats
