// The commands over a stretch of records: ticks taken out of a selection,
// depth restored from DEPTH_RAW, gas marked good or bad, and feet filled in
// between the changes of depth over the whole table.
#include "depth/geo_edit.h"
#include "depth/geo_records.h"
#include "depth/lag.h"
#include "store/range_delete.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

namespace depth {

namespace {

bool HasSelection(const Workstation& ws) {
    const auto& c = ws.chart;
    return c.SelectStartY >= 0 && c.SelectEndY >= 0 && geo::IdAtRow(ws, c.SelectStartY) > 0 &&
           geo::IdAtRow(ws, c.SelectEndY) > 0;
}

void ShowProgress(Workstation& ws, const QString& title, const QStringList& lines, int max) {
    auto& help = ws.fm_help;
    help.form.setCaption(title);
    station::help_msg(ws, "");
    for (const QString& l : lines) station::help_msg(ws, l);
    help.pgbar.setRange(0, std::max(1, max));
    help.pgbar.setValue(0);
    help.form.setVisible(true);
}

// DEPTH back to DEPTH_RAW, and the minutes of the foot from its rate where
// there is one, for `count` records from where rs stands.
void RestoreFrom(db::Recordset& rs, int32_t count, store::EditTransaction& edit) {
    for (int32_t i = 0; i < count && !rs.Eof(); ++i, rs.MoveNext()) {
        edit.beat();
        const double ftHr = geo::Num(rs, "FT_HR");
        rs.Edit();
        rs.SetField("DEPTH", rs.Fields("DEPTH_RAW"));
        if (ftHr > 0) rs.SetField("MIN_FT", 60 / ftHr);
        rs.Update();
    }
}

double Cut(double v, double scale) {
    return std::trunc(v * scale) / scale;
}

// The longest run of one foot that is still filled in; a longer one is a
// stop of the rig and stays as it stands.
constexpr int32_t kLongestRun = 1400;

} // namespace

void cmd_del_sel_ticks_Click(Workstation& ws) {
    if (!HasSelection(ws)) return;
    int32_t first = 0, last = 0;
    const bool ran = geo::Run(
        ws, "Delete Ticks Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction& edit) {
            if (!geo::Selection(ws, rs, first, last)) return;
            rs.SetAbsolutePosition(first);
            const double d0 = geo::Foot(geo::Num(rs, "DEPTH"));
            step = 3;
            for (int32_t pos = first; pos <= last && !rs.Eof(); ++pos, rs.MoveNext()) {
                edit.beat();
                geo::ForgetFoot(ws, geo::Num(rs, "DEPTH"));
                rs.Edit();
                rs.SetField("DEPTH", d0);
                rs.Update();
            }
        });
    if (ran) geo::Refresh(ws, first, last);
}

void cmd_restore_geo_Click(Workstation& ws) {
    if (!HasSelection(ws)) return;
    int32_t first = 0, last = 0;
    const bool ran = geo::Run(
        ws, "Restore Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction& edit) {
            if (!geo::Selection(ws, rs, first, last)) return;
            rs.SetAbsolutePosition(first);
            step = 3;
            // The last records of a selection are left as they are.
            RestoreFrom(rs, last - first - 5, edit);
        });
    if (ran) geo::Refresh(ws, first, last);
}

void cmd_restore_all_geo_Click(Workstation& ws) {
    if (ws.db.Gdb_busy) return;
    if (ws.dialogs().MsgBox("This will permantly change the data back to original"
                            "and can not be recovered"
                            "\r\n"
                            "Are you sure you want to restore the data?",
                            platform::Buttons::YesNo, "RESTORE DEPTH MARKS?",
                            platform::Icon::Question) == platform::Answer::No)
        return;
    const bool ran = geo::Run(
        ws, "Restore All Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction& edit) {
            const int32_t count = rs.RecordCount();
            ShowProgress(ws, "Restoring all Geolograph data",
                         {"", "Restoring all Geolograph data please wait..."}, count);
            if (count == 0) return;
            rs.MoveFirst();
            step = 3;
            RestoreFrom(rs, count, edit);
            ws.fm_help.pgbar.setValue(count);
        });
    ws.fm_help.form.setVisible(false);
    if (ran) geo::Refresh(ws, 0, 0);
}

void cmd_Mark_GU_Click(Workstation& ws, int index) {
    if (!HasSelection(ws)) return;
    int32_t first = 0, last = 0;
    const bool ran = geo::Run(
        ws, "Mark Gas Err: ", [&](db::Recordset& rs, int& step, store::EditTransaction& edit) {
            if (!geo::Selection(ws, rs, first, last)) return;
            rs.SetAbsolutePosition(first);
            step = 3;
            for (int32_t i = 0; i < last - first - 5 && !rs.Eof(); ++i, rs.MoveNext()) {
                edit.beat();
                QString text = rs.Fields("ERR_TXT").toText();
                if (index == 1)
                    text.prepend('*');
                else
                    text.remove('*');
                rs.Edit();
                rs.SetField("ERR_TXT", text);
                rs.Update();
            }
        });
    if (!ran) return;
    int32_t result = 0;
    Collect_ROP_Data(ws, first, last, false, result);
}

void Calculate_Tic_Marks(Workstation& ws) {
    geo::Run(ws, "Calculate Tic Marks Err: ",
             [&](db::Recordset& rs, int& step, store::EditTransaction& edit) {
                 const int32_t count = rs.RecordCount();
                 ShowProgress(ws, "Calculating Tic Marks",
                              {"", "Calculating Tic Marks", "Please wait..."}, count);
                 if (count == 0) return;
                 step = 3;
                 int32_t posA = 0;
                 rs.MoveFirst();
                 while (posA < count) {
                     rs.SetAbsolutePosition(posA);
                     double depthA = geo::Foot(geo::Num(rs, "DEPTH"));
                     const QDateTime timeA = rs.Fields("DT").toDate();
                     int32_t posB = posA + 1;
                     for (rs.MoveNext(); !rs.Eof() && geo::Foot(geo::Num(rs, "DEPTH")) == depthA;
                          rs.MoveNext()) {
                         edit.beat();
                         ++posB;
                     }
                     // The tail of the table has no change to end its run.
                     if (rs.Eof()) break;
                     const double depthB = geo::Foot(geo::Num(rs, "DEPTH"));
                     const QDateTime timeB = rs.Fields("DT").toDate();
                     const int32_t run = posB - posA;
                     ws.fm_help.pgbar.setValue(posB);
                     if (run > 1 && run <= kLongestRun) {
                         const double feet = depthB - depthA;
                         const double rise = feet / run;
                         const double s = static_cast<double>(timeA.secsTo(timeB));
                         rs.SetAbsolutePosition(posA + 1);
                         for (int32_t i = 1; i < run; ++i, rs.MoveNext()) {
                             edit.beat();
                             depthA += rise;
                             const double d = Cut(depthA, 10);
                             rs.Edit();
                             rs.SetField("DEPTH", d);
                             rs.SetField("DEPTH_RAW", d);
                             rs.SetField("BIT_DEPTH", d);
                             if (s > 0) {
                                 rs.SetField("MIN_FT", Cut((s / 60) / feet, 1000));
                                 rs.SetField("FT_HR", Cut(feet / (s / 3600), 1000));
                             }
                             rs.Update();
                         }
                     }
                     posA = posB;
                 }
             });
    ws.fm_help.form.setVisible(false);
}

void cmd_insert_ft_Click(Workstation& ws) {
    if (ws.db.Gdb_busy) return;
    Calculate_Tic_Marks(ws);
    geo::Refresh(ws, 0, 0);
}

void cmd_Add_Missing_Packets_Click(Workstation& ws) {
    if (!store::Add_Missing_Packets(ws)) return;
    Collect_ROP_Data(ws);
    station::make_chart(ws);
}

} // namespace depth
