// The pump stroke count the strokes lag stands on: rebuilt over the whole
// job from the strokes per minute, and carried into Gtotal_strokes when a
// job is opened so that counting goes on where it stopped.
#include "db/recordset.h"
#include "depth/lag.h"
#include "depth/pass_rhythm.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

namespace depth {

namespace {

// Fix_total_strokes commits every 800 rows.
constexpr int kStrokesBatch = 800;

db::Recordset OpenStrokes(Workstation& ws, db::Database& db) {
    db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    return db.OpenRecordset(" SELECT TOTAL_SPM, TOTAL_STROKES FROM " + ws.db.Gtable_name +
                            " ORDER BY PACKET_NUM");
}

void Rebuild(Workstation& ws, db::Database& db, db::Recordset& rs) {
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
    station::help_msg(ws, "");
    station::help_msg(ws, "Recalculating Pump strokes");
    station::help_msg(ws, "Please wait...");

    PassRhythm rhythm(ws, db, kStrokesBatch);
    rhythm.yieldNow();

    const db::Variant first = rs.Fields(1);
    int32_t total = first.isNull() ? 0 : first.toLong();
    int32_t spm = 0;
    while (!rs.Eof()) {
        const db::Variant s = rs.Fields(0);
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
    ws.depth.Gtotal_strokes = total;
    station::disply_text_alarms(ws, "Total Strokes Fixed");
}

} // namespace

void Fix_total_strokes(Workstation& ws) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) {
        station::disply_text_alarms(ws, "DB Busy: Total Strokes");
        return;
    }
    db::Database db;
    db::Recordset rs;
    try {
        Rebuild(ws, db, rs);
    } catch (...) {
        // The repair runs with errors ignored: what was written stands, and
        // the stroke total keeps its value.
    }
    ws.fm_help.form.setVisible(false);
    rs.Close();
    db.Close();
}

void cmd_FixTotal_Strokes_Click(Workstation& ws) {
    Fix_total_strokes(ws);
}

void ReadLastTotalStrokes(Workstation& ws) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    db::Database db;
    db::Recordset rs;
    try {
        rs = OpenStrokes(ws, db);
        if (rs.RecordCount() > 0) {
            // The fifth record from the end: the newest few may still be in
            // the writer's hands. A shorter table gives its first record.
            rs.MoveLast();
            for (int i = 0; i < 4 && rs.AbsolutePosition() > 0; ++i) rs.MovePrevious();
            const db::Variant v = rs.Fields(1);
            if (!v.isNull()) {
                ws.depth.Gtotal_strokes = v.toDouble();
                station::disply_text_alarms(ws, "Last Total Strokes: " +
                                                    text::Str(ws.depth.Gtotal_strokes));
            }
        }
    } catch (...) {
        // Read with errors ignored: the stroke total keeps its value.
    }
    rs.Close();
    db.Close();
}

} // namespace depth
