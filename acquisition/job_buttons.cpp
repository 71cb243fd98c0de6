// The three job buttons of the main screen: new, open and save as.
#include "acquisition/job_buttons.h"

#include "acquisition/live_fields.h"
#include "chart/chart.h"
#include "db/file_id.h"
#include "db/job_error.h"
#include "db/job_path.h"
#include "depth/lag.h"
#include "store/lifecycle.h"
#include "workstation/workstation.h"

namespace acq {

namespace {

const QString kFilter = QStringLiteral("Data Base File (*.DB) | *.db;*.DB | All Files (*.*) | *.*");

QString WithExtension(QString name) {
    name = db::JobPath(name);
    if (!name.endsWith("db") && !name.endsWith("DB")) name += ".DB";
    return name;
}

// The refresh is held while a dialog stands, and its count starts over.
class RefreshHeld {
  public:
    explicit RefreshHeld(Workstation& ws) : chart_(ws.chart), paused_(ws.chart.Grefresh_paused) {
        chart_.Grefresh_count = chart_.Grefresh_seconds;
        chart_.Grefresh_paused = true;
    }
    ~RefreshHeld() { chart_.Grefresh_paused = paused_; }
    RefreshHeld(const RefreshHeld&) = delete;
    RefreshHeld& operator=(const RefreshHeld&) = delete;

  private:
    chart::ChartState& chart_;
    bool paused_;
};

// A job on the shared set must not have it taken away from under it.
bool Busy(Workstation& ws) {
    return ws.db.Gdb_busy;
}

void LagStartsOver(Workstation& ws) {
    ws.depth.Glag_depth_now = 0;
    ws.more_data.lbl_current_lag_depth.setCaption("0.0");
}

} // namespace

void cmd_new_db_Click(Workstation& ws) {
    if (Busy(ws)) return;
    int pt = 1;
    try {
        QString name;
        {
            RefreshHeld held(ws);
            name = ws.dialogs().SaveFile("CREATE NEW DATA BASE FILE", kFilter,
                                         ws.programFile("DB_CUE"));
        }
        if (name.isEmpty()) return;
        pt = 2;
        acq::clear_vis_fields(ws);
        name = WithExtension(name);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 3;
        store::MakeDatabase(ws, name);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 4;
        bool verify = true;
        store::OpenSharedDb(ws, name, verify);
        pt = 5;
        ws.depth.Gtotal_strokes = 1;
        LagStartsOver(ws);
        depth::Collect_ROP_Data(ws);
        chart::make_chart(ws);
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("New DB Err: ", e, pt));
    }
}

void cmd_open_db_Click(Workstation& ws) {
    if (Busy(ws)) return;
    int pt = 1;
    try {
        QString name;
        {
            RefreshHeld held(ws);
            name = ws.dialogs().OpenFile("OPEN DATA BASE FILE", kFilter, ws.programFile("DB_CUE"));
        }
        if (name.isEmpty()) return;
        pt = 2;
        name = db::JobPath(name);
        acq::clear_vis_fields(ws);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 3;
        bool verify = true;
        store::OpenSharedDb(ws, name, verify);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 4;
        store::PrimeLastRecord(ws);
        depth::ReadLastTotalStrokes(ws);
        LagStartsOver(ws);
        pt = 5;
        depth::Collect_ROP_Data(ws);
        chart::make_chart(ws);
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("Open DB Err: ", e, pt));
    }
}

void cmd_save_database_Click(Workstation& ws) {
    if (Busy(ws)) return;
    int pt = 1;
    try {
        QString name;
        {
            RefreshHeld held(ws);
            name = ws.dialogs().SaveFile("SAVE DATA BASE FILE", kFilter, ws.programFile("DB_CUE"));
        }
        if (name.isEmpty()) return;
        pt = 2;
        store::CloseSharedDb(ws);
        name = WithExtension(name);
        const QString current = ws.fm_Gas_Chart.txt_db_path.text();
        // Saving onto itself leaves the file as it is.
        pt = 3;
        if (!db::SameFile(current, name)) db::CopyDatabase(current, name);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 4;
        bool verify = false;
        store::OpenSharedDb(ws, name, verify);
        store::PrimeLastRecord(ws);
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("Save DB Err: ", e, pt));
        // The job goes on in the file it was in.
        QString path;
        bool verify = false;
        store::OpenSharedDb(ws, path, verify);
    }
}

} // namespace acq
