// The marks of the geolograph box: foot ticks and renumbering stops put on
// and taken off one record, and the renumbering that reads them.
#include "depth/geo_edit.h"
#include "depth/geo_records.h"
#include "depth/lag.h"
#include "text/numbers.h"
#include "workstation/select_tool.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace depth {

namespace {

// How far a mark to take off is looked for on either side.
constexpr int32_t kReach = 400;

// The column each kind of mark turns negative.
const char* MarkColumn(int index) {
    return index == 1 ? "CGTESTNUM" : "DEPTH";
}

void CloseBoxes(Workstation& ws) {
    ws.fm_Gas_Chart.Geo_edit.setVisible(false);
    ws.fm_Gas_Chart.sel_type.setVisible(false);
}

// The chosen record of the geolograph box: the row of the level line; 0
// when the line is not there to choose one.
int32_t ChosenId(Workstation& ws) {
    const auto& c = ws.chart;
    if (!ws.fm_Gas_Chart.ln_selecter.visible() || c.ln_selecter_Y1 != c.ln_selecter_Y2) return 0;
    return geo::IdAtRow(ws, c.ln_selecter_Y1);
}

void Flip(db::Recordset& rs, const char* column) {
    rs.Edit();
    rs.SetField(column, -geo::Num(rs, column));
    rs.Update();
}

} // namespace

void cmd_add_foot_tick_Click(Workstation& ws, int index) {
    const int32_t id = ChosenId(ws);
    if (ws.chart.Gchart_busy || id < 1) {
        CloseBoxes(ws);
        return;
    }
    bool atEnd = false;
    geo::Run(ws, "Add Tick Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction&) {
        geo::Locate(rs, id);
        const int32_t pos = rs.AbsolutePosition();
        // A mark on the first or the newest record has no foot to begin.
        if (pos <= 0 || pos >= rs.RecordCount() - 1) {
            atEnd = true;
            return;
        }
        step = 3;
        Flip(rs, MarkColumn(index));
    });
    if (atEnd) {
        CloseBoxes(ws);
        return;
    }
    if (auto& g = ws.chart.graph) {
        g->CurrentX = ws.chart.PlotLeft - 250;
        g->CurrentY = ws.chart.ln_selecter_Y1;
        g->Print(index == 1 ? "RS" : "NF");
    }
}

void cmd_rem_foot_tick_Click(Workstation& ws, int index) {
    const int32_t id = ChosenId(ws);
    if (ws.chart.Gchart_busy || id < 1) {
        CloseBoxes(ws);
        return;
    }
    const char* column = MarkColumn(index);
    bool found = false;
    const bool ran = geo::Run(
        ws, "Remove Tick Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction&) {
            geo::Locate(rs, id);
            const int32_t at = rs.AbsolutePosition();
            const int32_t count = rs.RecordCount();
            // Outwards on both sides at once, so the nearest mark is the one.
            for (int32_t k = 0; k <= kReach && !found; ++k) {
                for (int32_t pos : {at - k, at + k}) {
                    if (pos < 0 || pos >= count) continue;
                    rs.SetAbsolutePosition(pos);
                    if (geo::Num(rs, column) < 0) {
                        step = 3;
                        Flip(rs, column);
                        found = true;
                        break;
                    }
                }
            }
        });
    if (ran && !found)
        ws.dialogs().MsgBox(index == 1 ? "Numbering stop not found to remove"
                                       : "Ft not found to remove",
                            platform::Buttons::Ok, "", platform::Icon::Exclamation);
}

void op_renum_Click(Workstation& ws, int index) {
    ws.depth.RenumDirection = index;
    ws.fm_Gas_Chart.op_renum.setValue(index);
}

void cmd_renum_geo_Click(Workstation& ws) {
    const int32_t id = ChosenId(ws);
    CloseBoxes(ws);
    if (ws.chart.Gchart_busy || id < 1) return;
    const bool down = ws.depth.RenumDirection == 1;
    const bool startAt = ws.fm_Gas_Chart.ck_renum_st_at.checked();
    const double startNumber = std::trunc(text::Val(ws.fm_Gas_Chart.txt_renum_start.text()));
    int32_t from = 0, to = 0;
    const bool ran = geo::Run(
        ws, "Renumber Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction& edit) {
            geo::Locate(rs, id);
            from = to = rs.AbsolutePosition();
            double base = geo::Foot(geo::Num(rs, "DEPTH"));
            double offset = 0;
            int32_t lastFoot = static_cast<int32_t>(base);
            bool first = true;
            bool stop = false;
            step = 3;
            while (!rs.Eof() && !rs.Bof()) {
                edit.beat();
                const double d = geo::Num(rs, "DEPTH");
                const int32_t foot = geo::Foot(d);
                // A tick, or a record where the foot changes, starts a foot.
                if (d < 0 || foot != lastFoot) {
                    if (stop) break;
                    if (first && startAt) base = startNumber;
                    first = false;
                    offset += down ? 1 : -1;
                }
                lastFoot = foot;
                if (geo::Num(rs, "CGTESTNUM") < 0) stop = true;
                geo::ForgetFoot(ws, d);
                rs.Edit();
                rs.SetField("DEPTH", base + offset + (std::fabs(d) - foot));
                rs.Update();
                to = rs.AbsolutePosition();
                if (down)
                    rs.MoveNext();
                else
                    rs.MovePrevious();
            }
        });
    if (!ran) return;
    if (from > to) std::swap(from, to);
    int32_t a = from, b = to, result = 0;
    recalculate_rop(ws, a, b, result);
    geo::Refresh(ws, from, to);
}

void cmd_cancel_geo_Click(Workstation& ws) {
    ws.fm_Gas_Chart.Geo_edit.setVisible(false);
    station::ClearSelection(ws);
}

void cmd_cancel_sel_Click(Workstation& ws) {
    ws.fm_Gas_Chart.sel_type.setVisible(false);
    station::ClearSelection(ws);
}

} // namespace depth
