#include "stats/stats_data.h"

#include "db/job_error.h"
#include "db/schema.h"
#include "stats/statistics.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

namespace stats {

namespace {
constexpr int32_t kFewestRecords = 6;
} // namespace

bool Open_Stats_Database(Workstation& ws, StatsData& d) {
    int32_t count = 0;
    try {
        d.db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        d.rs = d.db.OpenRecordset(db::RecordQuery(ws.db.Gtable_name));
        if (d.rs.RecordCount() > 0) {
            d.rs.MoveLast();
            d.rs.MovePrevious();
        }
        count = d.rs.RecordCount();
        d.depth = d.rs.FieldIndex("DEPTH");
        d.bit = d.rs.FieldIndex("BIT_DEPTH");
        d.minFt = d.rs.FieldIndex("MIN_FT");
        d.gas = d.rs.FieldIndex("GAS_UNITS");
        d.date = d.rs.FieldIndex("DATE_TXT");
        d.time = d.rs.FieldIndex("TIME_TXT");
        d.dt = d.rs.FieldIndex("DT");
    } catch (...) {
        // A file that can't be opened or read is no data: the callers say so.
        Close_Stats_Database(d);
        return false;
    }
    if (count < kFewestRecords) {
        Stats_Status(ws, "Not enough data to build a chart");
        Close_Stats_Database(d);
        return false;
    }
    // Reading the keys of a long job is the longest the loop waits in a run:
    // it gets its turn as soon as they are in.
    station::DoEvents(ws);
    return true;
}

void Close_Stats_Database(StatsData& d) {
    try {
        d.rs.Close();
        d.db.Close();
    } catch (...) {
        // Closing what failed to open fails too; nothing is left to close.
    }
    d = StatsData{};
}

void RunStatsPart(Workstation& ws, const QString& prefix,
                  const std::function<void(StatsData&, int& pt)>& part) {
    StatsData d;
    int pt = 0;
    try {
        part(d, pt);
    } catch (...) {
        station::disply_text_alarms(ws, prefix + db::ErrorText(std::current_exception()) +
                                            " Err pt: " + text::Str(pt));
        Close_Stats_Database(d);
    }
}

StatsTurns::StatsTurns(Workstation& ws, const StatsData& d, int from, int to)
    : ws_(ws), d_(d), rhythm_(ws, d.db), from_(from), to_(to) {
    // Each pass gives the loop a turn as it begins, however short it is.
    ws_.fm_help.pgbar.setValue(from_);
    rhythm_.yieldNow();
}

void StatsTurns::due() {
    const int32_t count = d_.rs.RecordCount();
    const int32_t at = d_.rs.AbsolutePosition();
    if (count > 0 && at >= 0) ws_.fm_help.pgbar.setValue(from_ + (to_ - from_) * at / count);
    rhythm_.yield();
}

} // namespace stats
