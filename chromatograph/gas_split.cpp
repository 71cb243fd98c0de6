// Correcting the split of a run between its gases: seven sliders that are
// read together so the percents always make 100, the size of the trace, the
// redraw they ask for (one per tick of Timer1, however many moves come), and
// the write of the corrected split into the records that report the run.

#include "chromatograph/chro_timers.h"
#include "chromatograph/chromatograph.h"
#include "db/job_error.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

namespace chromatograph {

void VS_c_Change(Workstation& ws, int) {
    CgRun& r = ws.chro.run;
    if (r.CgSliderGuard) return;
    double sum = 0;
    for (const forms::Control& c : ws.fm_chro.VS_c) sum += c.value();
    for (int g = 0; g < kGases; ++g) {
        // All seven at nothing is an even split, not a division by nothing.
        r.CgPct[g] = sum > 0 ? ws.fm_chro.VS_c[g].value() / sum * 100 : 100.0 / kGases;
        r.CgC[g] = r.CgPct[g] / 100 * r.CgGasUnits;
    }
    ws.chro.CgRedrawPending = true;
}

void vs_cg_vis_size_Change(Workstation& ws) {
    const double gain = (201 - ws.fm_chro.vs_cg_vis_size.value()) * 1000.0;
    ws.settings.CgVisibleGain = gain;
    ws.fm_setup.txt_cg_gain.setText(text::Str(gain));
    if (!ws.chro.CgGainGuard) ws.chro.CgRedrawPending = true;
}

void fm_chro_Timer1_Timer(Workstation& ws) {
    ChroState& s = ws.chro;
    if (s.CgRedrawPending) {
        // A draw under way finishes first; it never waits on anything, so
        // a few turns of the loop are plenty.
        for (int turns = 0; s.Gcg_drawing && turns < 50; ++turns) station::DoEvents(ws);
        if (!s.Gcg_drawing) draw_chromatograph(ws);
    }
    s.CgRedrawPending = false;
}

void cmd_Commit_Click(Workstation& ws) {
    const CgRun& r = ws.chro.run;
    db::Recordset& rs = ws.db.Grecords;
    static const char* const gases[kGases] = {"C1", "C2", "C3", "IC4", "NC4", "IC5", "NC5"};
    // An edit of the job holds the shared set and its transaction while
    // the loop runs: the gas waits for it to end rather than join it.
    if (ws.db.Gdb_busy) return;
    int step = 1;
    try {
        const int32_t kept = rs.AbsolutePosition();
        const int32_t report = r.CgLastRecord + 1;
        // A run whose report has not come in has nothing to write to.
        if (r.CgCount <= 0 || report < 1 || report >= rs.RecordCount()) return;
        rs.SetAbsolutePosition(report);
        const double testNum = rs.Fields("CGTESTNUM").valueOr(0);
        step = 2;
        {
            // All the records of the group or none: the loop does not run
            // while the write lock is held, so this stays short.
            db::Transaction tx(rs.Parent());
            step = 3;
            while (!rs.Eof() && rs.Fields("CGTESTNUM").valueOr(0) == testNum) {
                const double gasUnits = rs.Fields("GAS_UNITS").valueOr(0);
                rs.Edit();
                for (int g = 0; g < kGases; ++g) rs.SetField(gases[g], r.CgPct[g] / 100 * gasUnits);
                rs.Update();
                rs.MoveNext();
            }
            step = 4;
            tx.Commit();
        }
        if (kept >= 0 && kept < rs.RecordCount()) rs.SetAbsolutePosition(kept);
    } catch (const std::exception& e) {
        ws.db.Gdb_error = true;
        station::disply_text_alarms(ws, db::JobError("Commit CG Err: ", e, step));
    }
}

} // namespace chromatograph
