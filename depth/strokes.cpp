// The pump stroke count the strokes lag stands on: rebuilt over the whole
// job from the strokes per minute, and carried into Gtotal_strokes when a
// job is opened so that counting goes on where it stopped.
#include "db/recordset.h"
#include "depth/lag.h"
#include "depth/pass_rhythm.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <optional>

namespace depth {

namespace {

// Fix_total_strokes commits every 800 rows.
constexpr int kStrokesBatch = 800;

db::Recordset OpenStrokes(Workstation& ws, db::Database& db) {
    db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    return db.OpenRecordset(" SELECT TOTAL_SPM, TOTAL_STROKES FROM " + ws.db.Gtable_name +
                            " ORDER BY PACKET_NUM");
}

// The repair runs with errors ignored: a statement that fails is passed
// over and the next one runs, as far as the end, where the count is taken
// and the message shows whatever happened on the way.
template <class Step> void Resume(Step&& step) {
    try {
        step();
    } catch (...) {
    }
}

void Rebuild(Workstation& ws, db::Database& db, db::Recordset& rs) {
    Resume([&] { rs = OpenStrokes(ws, db); });
    int32_t last = 0;
    Resume([&] { rs.MoveFirst(); });
    Resume([&] { rs.MoveLast(); });
    Resume([&] { last = rs.AbsolutePosition(); });
    Resume([&] { rs.MoveFirst(); });

    auto& help = ws.fm_help;
    help.pgbar.setRange(0, last + 100);
    help.pgbar.setValue(1);
    help.form.setCaption("Recalculating PUMP STROKES");
    help.form.setVisible(true);
    station::help_msg(ws, "");
    station::help_msg(ws, "Recalculating Pump strokes");
    station::help_msg(ws, "Please wait...");

    std::optional<PassRhythm> rhythm;
    Resume([&] { rhythm.emplace(ws, db, kStrokesBatch); });
    station::DoEvents(ws);

    int32_t total = 0;
    Resume([&] {
        const db::Variant first = rs.Fields(1);
        total = first.isNull() ? 0 : first.toLong();
    });
    int32_t spm = 0;
    // A recordset that is not there has no rows to go through.
    const auto atEnd = [&] {
        try {
            return rs.Eof();
        } catch (...) {
            return true;
        }
    };
    while (!atEnd()) {
        Resume([&] {
            const db::Variant s = rs.Fields(0);
            if (!s.isNull()) spm = s.toLong();
        });
        // One tenth of a minute's strokes per record, the fraction dropped,
        // as the record writer counts them.
        total = static_cast<int32_t>(text::Fix(spm / 10.0 + total));
        bool written = false;
        Resume([&] {
            rhythm.value().beginWrite();
            rs.Edit();
            rs.SetField(1, static_cast<long long>(total));
            rs.Update();
            written = true;
        });
        // A row whose write failed is left as it was, and the batch goes on.
        if (!written) Resume([&] { rs.CancelUpdate(); });
        Resume([&] { rhythm.value().endWrite(); });
        if (rhythm) Resume([&] { rhythm->yield(); });
        if (help.pgbar.value() + 1 <= help.pgbar.max()) help.pgbar.setValue(help.pgbar.value() + 1);
        try {
            rs.MoveNext();
        } catch (...) {
            break;
        }
    }
    Resume([&] { rhythm.value().commit(); });
    Resume([&] { rhythm.reset(); });
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
    Rebuild(ws, db, rs);
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
