// MIN_FT rewritten from the time between changes of whole foot, after the
// geolograph has been renumbered.
#include "depth/rop_recalc.h"

#include "db/job_error.h"
#include "db/recordset.h"
#include "depth/lag.h"
#include "depth/pass_rhythm.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <cstdlib>
#include <utility>

namespace depth {

double FootMinutes(int64_t seconds) {
    // A time of day has no sign: a clock that went back reads as the time
    // it went back by.
    const int64_t s = std::llabs(seconds) % 86400;
    const int64_t hh = s / 3600, mm = (s / 60) % 60, ss = s % 60;
    return double(hh * 60 + mm) + double(ss) / 60;
}

namespace {

int32_t Recalculate(Workstation& ws, int32_t first, int32_t last, int& pt) {
    pt = 2;
    db::Database db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    db::Recordset rs = db.OpenRecordset(" SELECT DEPTH, DT, MIN_FT FROM " + ws.db.Gtable_name +
                                        " ORDER BY PACKET_NUM");
    if (rs.RecordCount() == 0) return 0;
    rs.MoveFirst();
    rs.MoveLast();
    if (first == 0 && last == 0) rs.MoveFirst();
    if (first > last) std::swap(first, last);
    if (!(first < 1 && last < 1)) rs.SetAbsolutePosition(first);
    const bool ranged = last > 0;
    auto atEnd = [&] { return rs.Eof() || (ranged && rs.AbsolutePosition() >= last); };

    // The first foot is not whole: its rate is left as it stands.
    pt = 3;
    double foot = text::Int(rs.Fields(0).toDouble());
    while (!atEnd() && text::Int(rs.Fields(0).toDouble()) == foot) rs.MoveNext();
    if (atEnd()) return 0;

    pt = 4;
    foot = text::Int(rs.Fields(0).toDouble());
    QDateTime footTime = rs.Fields(1).toDate();
    double m = rs.Fields(2).toDouble();
    PassRhythm rhythm(ws, db);
    int32_t written = 0;
    while (!atEnd()) {
        pt = 5;
        rhythm.beginWrite();
        rs.Edit();
        rs.SetField(2, m);
        rs.Update();
        rhythm.endWrite();
        ++written;
        const double here = text::Int(rs.Fields(0).toDouble());
        if (here != foot) {
            foot = here;
            const QDateTime t = rs.Fields(1).toDate();
            const double minutes = FootMinutes(footTime.secsTo(t));
            if (minutes > 0) m = minutes;
            footTime = t;
        }
        rhythm.yield();
        rs.MoveNext();
    }
    pt = 6;
    rhythm.commit();
    return written;
}

} // namespace

void recalculate_rop(Workstation& ws, int32_t& firstRec, int32_t& lastRec, int32_t& result) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    int pt = 1;
    try {
        result = Recalculate(ws, firstRec, lastRec, pt);
    } catch (...) {
        station::disply_text_alarms(ws,
                                    "DB ROP Chart Err: " + db::ErrorText(std::current_exception()) +
                                        "  Err pt: " + text::Str(pt));
    }
}

} // namespace depth
