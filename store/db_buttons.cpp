// The three job buttons of the main screen: new, open and save as.
#include "acquisition/live_fields.h"
#include "acquisition/workstation.h"
#include "chart/chart.h"
#include "depth/lag.h"
#include "store/file_id.h"
#include "store/job_messages.h"
#include "store/lifecycle.h"

namespace store {

namespace {

const QString kFilter = QStringLiteral("Data Base File (*.DB) | *.db;*.DB | All Files (*.*) | *.*");

QString WithExtension(QString name) {
    if (!name.endsWith("db") && !name.endsWith("DB")) name += ".DB";
    return name;
}

// The refresh is held while a dialog stands, and its count starts over.
class RefreshHeld {
  public:
    explicit RefreshHeld(Workstation& ws) : rt_(ws.rt), paused_(ws.rt.Grefresh_paused) {
        rt_.Grefresh_count = rt_.Grefresh_seconds;
        rt_.Grefresh_paused = true;
    }
    ~RefreshHeld() { rt_.Grefresh_paused = paused_; }
    RefreshHeld(const RefreshHeld&) = delete;
    RefreshHeld& operator=(const RefreshHeld&) = delete;

  private:
    acq::Runtime& rt_;
    bool paused_;
};

// A job on the shared set must not have it taken away from under it.
bool Busy(Workstation& ws) {
    return ws.rt.Gdb_busy;
}

void LagStartsOver(Workstation& ws) {
    ws.rt.Glag_depth_now = 0;
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
        MakeDatabase(ws, name);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 4;
        bool verify = true;
        OpenSharedDb(ws, name, verify);
        pt = 5;
        ws.rt.Gtotal_strokes = 1;
        LagStartsOver(ws);
        depth::Collect_ROP_Data(ws);
        chart::make_chart(ws);
    } catch (const std::exception& e) {
        acq::disply_text_alarms(ws, JobError("New DB Err: ", e, pt));
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
        acq::clear_vis_fields(ws);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 3;
        bool verify = true;
        OpenSharedDb(ws, name, verify);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 4;
        PrimeLastRecord(ws);
        depth::ReadLastTotalStrokes(ws);
        LagStartsOver(ws);
        pt = 5;
        depth::Collect_ROP_Data(ws);
        chart::make_chart(ws);
    } catch (const std::exception& e) {
        acq::disply_text_alarms(ws, JobError("Open DB Err: ", e, pt));
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
        CloseSharedDb(ws);
        name = WithExtension(name);
        const QString current = ws.fm_Gas_Chart.txt_db_path.text();
        // Saving onto itself leaves the file as it is.
        pt = 3;
        if (!SameFile(current, name)) CopyDatabase(current, name);
        ws.fm_Gas_Chart.txt_db_path.setText(name);
        pt = 4;
        bool verify = false;
        OpenSharedDb(ws, name, verify);
        PrimeLastRecord(ws);
    } catch (const std::exception& e) {
        acq::disply_text_alarms(ws, JobError("Save DB Err: ", e, pt));
        // The job goes on in the file it was in.
        QString path;
        bool verify = false;
        OpenSharedDb(ws, path, verify);
    }
}

} // namespace store
