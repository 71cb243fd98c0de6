// cmd_del_from_db: a stretch of the chart out of the job.
//
// The rows go in one DELETE on the shared connection, not row by row with
// the loop running between batches: a delete that stopped half way would
// leave a hole the user never chose, and the live writer only needs the
// lock for a moment, which it gets as soon as the statement is done.
#include "store/range_delete.h"

#include "db/db_error.h"
#include "db/job_error.h"
#include "store/lifecycle.h"
#include "workstation/busy_guard.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/select_tool.h"
#include "workstation/workstation.h"

#include <algorithm>

namespace store {

namespace {

// The ID the chart drew at canvas row y, 0 for an empty or impossible row.
int32_t IdAtRow(const chart::ChartState& c, int32_t y) {
    if (y < 0 || y >= static_cast<int32_t>(c.RowRecordId.size())) return 0;
    return c.RowRecordId[y];
}

void ShowProgress(Workstation& ws, int rows) {
    auto& help = ws.fm_help;
    help.form.setCaption("Deleting Data Base Information\r\nDon't Touch Any Buttons.");
    station::help_msg(ws, "");
    station::help_msg(ws, "Deleting selected data");
    help.pgbar.setRange(0, std::max(1, rows));
    help.pgbar.setValue(0);
    help.form.setVisible(true);
}

// The chart's marks may point past the end of a shorter table.
void LimitMarks(Workstation& ws) {
    auto& c = ws.chart;
    const int32_t last = std::max(0, ws.db.RecordCount - 2);
    c.LastRecord = std::min(c.LastRecord, last);
    c.ChartTopRecord = std::min(c.ChartTopRecord, last);
    c.HourPointer = std::min(c.HourPointer, last);
}

} // namespace

void cmd_del_from_db_Click(Workstation& ws) {
    auto& c = ws.chart;
    auto& st = ws.db;
    c.Grefresh_count = c.Grefresh_seconds;
    if (st.Gdb_busy || c.SelectStartY < 0 || c.SelectEndY < 0) {
        station::ClearSelection(ws);
        return;
    }
    const platform::Answer answer = ws.dialogs().MsgBox(
        "This will permanately delete this data"
        "and may take a few minutes."
        "\r\n"
        "ARE YOU SURE?",
        platform::Buttons::YesNo, "ARE YOU SURE YOU WANT TO DELETE?", platform::Icon::Question);
    const int32_t startId = IdAtRow(c, c.SelectStartY);
    const int32_t endId = IdAtRow(c, c.SelectEndY);
    if (startId < 1 || endId < 1) {
        ws.dialogs().MsgBox("You must select points from within the chart", platform::Buttons::Ok,
                            "", platform::Icon::Exclamation);
        return;
    }
    ws.fm_Gas_Chart.Geo_edit.setVisible(false);
    ws.fm_Gas_Chart.sel_type.setVisible(false);
    if (answer != platform::Answer::Yes) return;

    station::BusyFlag busy(st.Gdb_busy);
    // The two ends in either order: a stretch chosen from the bottom up is
    // the same stretch.
    const int32_t from = std::min(startId, endId) - 1;
    const int32_t to = std::max(startId, endId) + 1;
    station::ClearSelection(ws);
    int pt = 5;
    try {
        if (!st.Gdb.isOpen()) {
            QString path;
            bool verify = false;
            OpenSharedDb(ws, path, verify);
            st.Gdb_busy = true;
        }
        pt = 6;
        const QString where =
            QString(" FROM %1 WHERE ID BETWEEN %2 AND %3").arg(st.Gtable_name).arg(from).arg(to);
        const int rows = st.Gdb.OpenRecordset("SELECT ID" + where).RecordCount();
        ShowProgress(ws, rows);
        pt = 7;
        db::Transaction trans(st.Gdb);
        st.Gdb.Execute("DELETE" + where);
        pt = 8;
        trans.Commit();
        ws.fm_help.pgbar.setValue(ws.fm_help.pgbar.max());
        ws.fm_help.form.setVisible(false);
    } catch (const std::exception& e) {
        ws.fm_help.form.setVisible(false);
        st.Gdb_error = true;
        station::disply_text_alarms(ws, "DB del Err: " + db::Describe(e) +
                                            " Err Point: " + QString::number(pt));
    }
    busy.release();
    // The chart's dynaset still holds the keys of the deleted rows.
    QString path;
    bool verify = false;
    OpenSharedDb(ws, path, verify);
    LimitMarks(ws);
    station::make_chart(ws);
}

} // namespace store
