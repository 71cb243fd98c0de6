// The shared set: opened, closed, and the chart's marks put at the newest or
// the first record.
#include "db/job_error.h"
#include "db/job_path.h"
#include "db/schema.h"
#include "store/lifecycle.h"
#include "workstation/busy_guard.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QDir>

namespace store {

namespace {

void EnsureWorkspace(StoreState& st) {
    if (!st.Gworkspace.isOpen()) st.Gworkspace = db::Workspace::Create("Gworkspace");
}

template <class T> void Quietly(T& object) {
    try {
        object.Close();
    } catch (const std::exception&) {
        // Any of the sets may not be open; closing goes on regardless.
    }
}

} // namespace

void CloseSharedDb(Workstation& ws) {
    auto& st = ws.db;
    Quietly(st.Grecords);
    Quietly(st.Gdb);
    Quietly(st.GrecordsScan);
    Quietly(st.GdbScan);
    Quietly(st.GrecordsInsert);
    Quietly(st.GdbInsert);
    // The writer's connection goes too: whatever follows a close may put
    // another file under the path.
    Quietly(st.writerDb);
}

void EnsureCueFolder(Workstation& ws) {
    QDir().mkpath(ws.programFile("DB_CUE"));
}

void OpenSharedDb(Workstation& ws, QString& path, bool& verify) {
    auto& st = ws.db;
    station::BusyFlag busy(ws.db.Gdb_busy, station::BusyFlag::Always);
    int pt = 1;
    try {
        CloseSharedDb(ws);
        pt = 2;
        if (verify) EnsureCueFolder(ws);
        pt = 3;
        const bool fromControl = path.isEmpty();
        if (fromControl) path = ws.fm_Gas_Chart.txt_db_path.text();
        path = db::JobPath(path);
        if (fromControl) ws.fm_Gas_Chart.txt_db_path.setText(path);
        pt = 4;
        if (verify) {
            verify = false;
            VerifyDatabase(ws, path);
            // A file that had to be made under another name is the job now:
            // the record writer follows txt_db_path.
            if (fromControl) ws.fm_Gas_Chart.txt_db_path.setText(path);
        }
        pt = 5;
        EnsureWorkspace(st);
        st.Gdb = st.Gworkspace.OpenDatabase(path);
        pt = 6;
        st.Grecords = st.Gdb.OpenRecordset(db::RecordQuery(ws.db.Gtable_name));
        st.RecordCount = st.Grecords.RecordCount();
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("Open DB Err: ", e, pt));
        CloseSharedDb(ws);
    }
}

void PrimeLastRecord(Workstation& ws) {
    auto& st = ws.db;
    QString path;
    bool verify = false;
    OpenSharedDb(ws, path, verify);
    if (!st.Grecords.isOpen()) return; // the open has said why
    try {
        int32_t position = 0;
        if (st.Grecords.RecordCount() == 0) {
            position = st.Grecords.RecordCount();
        } else {
            // The newest record may still be in the writer's hands: the one
            // before it.
            st.Grecords.MoveLast();
            st.Grecords.MovePrevious();
            position = st.Grecords.AbsolutePosition();
            // The logs and the minimised title name the unit of the records.
            if (!st.Grecords.Bof())
                ws.packet.UnitSerial = st.Grecords.Fields("SERIAL_NUM").toText();
        }
        ws.chart.LastRecord = position;
        ws.chart.ChartTopRecord = position;
        ws.chart.HourPointer = position;
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("Open DB Err: ", e, 7));
    }
}

void PrimeFirstRecord(Workstation& ws) {
    auto& st = ws.db;
    try {
        int32_t position = 0;
        if (st.Grecords.RecordCount() > 0) {
            st.Grecords.MoveFirst();
            position = st.Grecords.AbsolutePosition();
        }
        ws.chart.ChartTopRecord = position;
        ws.chart.HourPointer = position;
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("Open DB Err: ", e, 8));
    }
}

} // namespace store
