// Compact and repair: the job is written afresh into a new file that then
// takes the old one's place.
#include "db/job_error.h"
#include "store/lifecycle.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

namespace store {

void Compact_db(Workstation& ws) {
    auto& st = ws.db;
    auto& help = ws.fm_help;
    // 1.
    help.form.setCaption("Compacting Data Base \r\nDon't Touch Any Buttons.");
    station::help_msg(ws, "");
    station::help_msg(ws, "Compacting And Repairing Data Base...");
    help.pgbar.setValue(std::min(4, help.pgbar.max()));
    help.form.setVisible(true);
    station::DoEvents(ws);
    // 2.
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) {
        help.form.setVisible(false);
        return;
    }
    int pt = 2;
    try {
        CloseSharedDb(ws);
        st.Gworkspace.Close();
        // 3.
        pt = 3;
        const QString path = ws.fm_Gas_Chart.txt_db_path.text();
        const QString temp = path + ".temp";
        db::RemoveJobFile(temp);
        db::CompactDatabase(path, temp);
        pt = 4;
        if (!db::PutJobFileInPlace(temp, path))
            throw db::DbError(db::err::DiskError, "Could not put the compacted file in place");
        // 4.
        pt = 5;
        st.Gworkspace = db::Workspace::Create("Gworkspace");
        QString shared;
        bool verify = false;
        OpenSharedDb(ws, shared, verify);
        help.form.setVisible(false);
    } catch (const std::exception& e) {
        // The shared set may be left closed: the next chart draw says so.
        station::disply_text_alarms(ws, db::JobError("Compact Repair Err: ", e, pt));
        help.form.setVisible(false);
        if (!st.Gworkspace.isOpen()) st.Gworkspace = db::Workspace::Create("Gworkspace");
    }
    busy.release();
    station::make_chart(ws);
}

} // namespace store
