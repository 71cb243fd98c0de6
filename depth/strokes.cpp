// The pump stroke count the strokes lag stands on: rebuilt over the whole
// job from the strokes per minute, and carried into Gtotal_strokes when a
// job is opened so that counting goes on where it stopped.
#include "acquisition/info_box.h"
#include "acquisition/live_fields.h"
#include "acquisition/workstation.h"
#include "depth/lag.h"
#include "depth/pass_rhythm.h"
#include "store/recordset.h"
#include "text/numbers.h"

namespace depth {

namespace {

// Fix_total_strokes commits every 800 rows.
constexpr int kStrokesBatch = 800;

store::Recordset OpenStrokes(Workstation& ws, store::Database& db) {
    db = store::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    return db.OpenRecordset(" SELECT TOTAL_SPM, TOTAL_STROKES FROM " + ws.rt.Gtable_name +
                            " ORDER BY PACKET_NUM");
}

void Rebuild(Workstation& ws, store::Database& db, store::Recordset& rs) {
    rs = OpenStrokes(ws, db);
    if (rs.RecordCount() == 0) return;
    rs.MoveFirst();
    rs.MoveLast();
    const int32_t last = rs.AbsolutePosition();
    rs.MoveFirst();

    auto& help = ws.fm_help;
    help.pgbar.setRange(0, last + 100);
    help.pgbar.setValue(1);
    help.form.setCaption("Recalculating PUMP STROKES");
    help.form.setVisible(true);
    acq::help_msg(ws, "");
    acq::help_msg(ws, "Recalculating Pump strokes");
    acq::help_msg(ws, "Please wait...");

    PassRhythm rhythm(ws, db, kStrokesBatch);
    rhythm.yieldNow();

    const store::Variant first = rs.Fields(1);
    int32_t total = first.isNull() ? 0 : first.toLong();
    int32_t spm = 0;
    while (!rs.Eof()) {
        const store::Variant s = rs.Fields(0);
        if (!s.isNull()) spm = s.toLong();
        // One tenth of a minute's strokes per record, the fraction dropped,
        // as the record writer counts them.
        total = static_cast<int32_t>(text::Fix(spm / 10.0 + total));
        rhythm.beginWrite();
        rs.Edit();
        rs.SetField(1, static_cast<long long>(total));
        rs.Update();
        rhythm.endWrite();
        rhythm.yield();
        if (help.pgbar.value() + 1 <= help.pgbar.max()) help.pgbar.setValue(help.pgbar.value() + 1);
        rs.MoveNext();
    }
    rhythm.commit();
    ws.rt.Gtotal_strokes = total;
    acq::disply_text_alarms(ws, "Total Strokes Fixed");
}

} // namespace

void Fix_total_strokes(Workstation& ws) {
    auto& rt = ws.rt;
    if (rt.Gdb_busy) {
        acq::disply_text_alarms(ws, "DB Busy: Total Strokes");
        return;
    }
    rt.Gdb_busy = true;
    store::Database db;
    store::Recordset rs;
    try {
        Rebuild(ws, db, rs);
    } catch (...) {
        // The repair runs with errors ignored: what was written stands, and
        // the stroke total keeps its value.
    }
    ws.fm_help.form.setVisible(false);
    rs.Close();
    db.Close();
    rt.Gdb_busy = false;
}

void cmd_FixTotal_Strokes_Click(Workstation& ws) {
    Fix_total_strokes(ws);
}

void ReadLastTotalStrokes(Workstation& ws) {
    auto& rt = ws.rt;
    if (rt.Gdb_busy) return;
    rt.Gdb_busy = true;
    store::Database db;
    store::Recordset rs;
    try {
        rs = OpenStrokes(ws, db);
        if (rs.RecordCount() > 0) {
            // The fifth record from the end: the newest few may still be in
            // the writer's hands. A shorter table gives its first record.
            rs.MoveLast();
            for (int i = 0; i < 4 && rs.AbsolutePosition() > 0; ++i) rs.MovePrevious();
            const store::Variant v = rs.Fields(1);
            if (!v.isNull()) {
                rt.Gtotal_strokes = v.toDouble();
                acq::disply_text_alarms(ws, "Last Total Strokes: " + text::Str(rt.Gtotal_strokes));
            }
        }
    } catch (...) {
        // Read with errors ignored: the stroke total keeps its value.
    }
    rs.Close();
    db.Close();
    rt.Gdb_busy = false;
}

} // namespace depth
