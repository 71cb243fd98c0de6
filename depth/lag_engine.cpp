// The lag engine's door: one routine for every kind of pass, its callers,
// and the clearing of all lag.
#include "db/job_error.h"
#include "depth/lag.h"
#include "depth/lag_pass.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

namespace depth {

namespace {

void HideHelp(Workstation& ws) {
    ws.fm_help.form.setVisible(false);
}

void RunPasses(LagPass& p) {
    Workstation& ws = p.ws;
    auto& rs = p.rs;
    p.pt = 2;
    p.open();
    // A job without records has no first record to move to: the pass ends
    // in its handler, as every failure of the opening does.
    rs.MoveFirst();
    rs.MoveLast();

    p.pt = 3;
    if (rs.RecordCount() >= 100) {
        ws.fm_help.pgbar.setRange(0, rs.RecordCount());
        ws.fm_help.pgbar.setValue(1);
        p.ShowHelp("Recalculating lag.", "Recalculating the LAG");
    }
    p.pt = 4;
    p.rhythm->yieldNow();

    p.pt = 5;
    if (p.fromDepth > 0 && p.toDepth > 0) {
        while (!rs.Bof() && p.Depth() > p.toDepth) {
            rs.MovePrevious();
            p.rhythm->yield();
        }
        if (rs.Bof()) rs.MoveFirst();
    }

    p.pt = 6;
    if (ws.fm_setup.op_lag_calc_Str.checked()) StrokesPass(p);
    p.pt = 7;
    if (ws.fm_setup.op_lag_calc_Time.checked() && !rs.Bof() && !rs.Eof()) TimePass(p);

    p.pt = 8;
    if (p.limit == 0 && ws.fm_setup.ck_Fix_ROP.value() == 1) {
        RopPass(p);
        ws.fm_setup.ck_Fix_ROP.setValue(0);
    }
    p.pt = 9;
    p.rhythm->commit();
}

} // namespace

void RecalculateLag(Workstation& ws, long limit, double fromDepth, double toDepth) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    LagPass p(ws, limit, fromDepth, toDepth);
    try {
        RunPasses(p);
    } catch (...) {
        station::disply_text_alarms(
            ws, "Recalculate Lag Err: " + db::ErrorText(std::current_exception()) +
                    "  Errpt: " + text::Str(p.pt));
        ws.db.Gdb_error = true;
    }
    HideHelp(ws);
    try {
        p.close();
    } catch (...) {
        // Closing what may not have opened.
    }
}

void tmr_recalc_lag_Timer(Workstation& ws) {
    if (ws.chart.Grefresh_paused) return;
    RecalculateLag(ws, 400, 0, 0);
}

void cmd_recalc_lag_Click(Workstation& ws, int index) {
    Fix_total_strokes(ws);
    if (index == 0) {
        RecalculateLag(ws, 0, 0, 0);
    } else {
        RecalculateLag(ws, 0, text::Val(ws.fm_setup.txt_recalc_lag_from.text()),
                       text::Val(ws.fm_setup.txt_recalc_lag_to.text()));
    }
    // The records under the depth arrays have changed.
    ws.depth.RopRebuild = true;
}

void ClearLag(Workstation& ws) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    db::Database db;
    db::Recordset rs;
    try {
        db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        rs = db.OpenRecordset(" SELECT LAG_GU, DATA1 FROM " + ws.db.Gtable_name +
                              " ORDER BY PACKET_NUM");
        // Batches of at most 400 records.
        PassRhythm rhythm(ws, db, 400);
        if (rs.RecordCount() > 0) rs.MoveFirst();
        while (rs.RecordCount() > 0 && !rs.Eof()) {
            rhythm.beginWrite();
            rs.Edit();
            rs.SetField(0, 0.0);
            rs.SetField(1, 0.0);
            rs.Update();
            rhythm.endWrite();
            rhythm.yield();
            rs.MoveNext();
        }
        rhythm.commit();
    } catch (...) {
        station::disply_text_alarms(ws,
                                    "Clear Lag Err: " + db::ErrorText(std::current_exception()));
    }
    rs.Close();
    db.Close();
}

void cmd_Clear_Lag_Click(Workstation& ws) {
    ClearLag(ws);
}

} // namespace depth
