// Compact and repair: the job is written afresh into a new file that then
// takes the old one's place.
#include "acquisition/events.h"
#include "acquisition/info_box.h"
#include "acquisition/live_fields.h"
#include "acquisition/workstation.h"
#include "chart/chart.h"
#include "store/job_messages.h"
#include "store/lifecycle.h"

namespace store {

void Compact_db(Workstation& ws) {
    auto& rt = ws.rt;
    auto& st = ws.db;
    auto& help = ws.fm_help;
    // 1.
    help.form.setCaption("Compacting Data Base \r\nDon't Touch Any Buttons.");
    acq::help_msg(ws, "");
    acq::help_msg(ws, "Compacting And Repairing Data Base...");
    help.pgbar.setValue(std::min(4, help.pgbar.max()));
    help.form.setVisible(true);
    acq::DoEvents(ws);
    // 2.
    if (rt.Gdb_busy) {
        help.form.setVisible(false);
        return;
    }
    int pt = 2;
    try {
        rt.Gdb_busy = true;
        CloseSharedDb(ws);
        st.Gworkspace.Close();
        // 3.
        pt = 3;
        const QString path = ws.fm_Gas_Chart.txt_db_path.text();
        const QString temp = path + ".temp";
        RemoveJobFile(temp);
        CompactDatabase(path, temp);
        pt = 4;
        if (!PutJobFileInPlace(temp, path))
            throw DbError(err::DiskError, "Could not put the compacted file in place");
        // 4.
        pt = 5;
        st.Gworkspace = Workspace::Create("Gworkspace");
        QString shared;
        bool verify = false;
        OpenSharedDb(ws, shared, verify);
        help.form.setVisible(false);
    } catch (const std::exception& e) {
        // The shared set may be left closed: the next chart draw says so.
        acq::disply_text_alarms(ws, JobError("Compact Repair Err: ", e, pt));
        rt.Gdb_busy = false;
        help.form.setVisible(false);
        if (!st.Gworkspace.isOpen()) st.Gworkspace = Workspace::Create("Gworkspace");
    }
    chart::make_chart(ws);
}

} // namespace store
