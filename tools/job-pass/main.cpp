// job-pass: runs one of the workstation's long writing jobs on a job file,
// headless, from start to end, as the buttons of the program run them. The
// kill test starts it, kills it without warning half way, checks the file,
// and runs it again to see that the second run finishes what the first
// began.
//
//   job-pass <job file> lag|strokes|reindex|convert|restore
//
// lag: the whole-file lag pass by strokes (100 strokes a hundred feet);
// strokes: TOTAL_STROKES rebuilt from TOTAL_SPM; reindex: the open of a job,
// which renumbers ID in packet order; convert: the open of a job of the older
// generation, the conversion agreed to; restore: Restore All Geolograph Data
// on the open job, agreed to. Prints "done" once the job returned, and exits
// 1 if it reported a failure.

#include "acquisition/tick_table.h"
#include "depth/geo_edit.h"
#include "depth/lag.h"
#include "store/lifecycle.h"
#include "tools/common/agreeing_dialogs.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() != 3 ||
        !QStringList{"lag", "strokes", "reindex", "convert", "restore"}.contains(a[2])) {
        std::fprintf(stderr, "usage: job-pass <job file> lag|strokes|reindex|convert|restore\n");
        return 2;
    }
    const QString job = QFileInfo(a[1]).absoluteFilePath();
    const QString pass = a[2];
    QTemporaryDir scratch; // the workstation's logs stay out of the way
    tools::AgreeingDialogs yes;
    Workstation ws(scratch.path(), &yes);
    acq::Wire(ws);
    ws.fm_Gas_Chart.txt_db_path.setText(job);

    if (pass == "reindex" || pass == "convert") {
        QString path = job;
        bool verify = true;
        store::OpenSharedDb(ws, path, verify);
        store::CloseSharedDb(ws);
    } else if (pass == "restore") {
        QString path = job;
        bool verify = false;
        store::OpenSharedDb(ws, path, verify);
        depth::cmd_restore_all_geo_Click(ws);
        store::CloseSharedDb(ws);
    } else if (pass == "strokes") {
        depth::Fix_total_strokes(ws);
    } else {
        // The zone look picks its random interval; fixed, so two runs agree.
        ws.Rnd = [] { return 0.5; };
        ws.fm_setup.op_lag_calc_Str.setValue(1);
        ws.fm_setup.op_lag_calc_Time.setValue(0);
        ws.fm_setup.txt_str_per_100ft[1].setText("100");
        depth::tmr_lag_calc_Timer(ws);
        depth::RecalculateLag(ws, 0, 0, 0);
    }
    const QString said = ws.fm_Gas_Chart.txt_message.text();
    // The conversion and the edit tell a failure without raising Gdb_error.
    const bool failed =
        ws.db.Gdb_error || ((pass == "convert" || pass == "restore") && said.contains(" Err: "));
    std::printf("%s\n", failed ? "failed" : "done");
    if (failed) std::fprintf(stderr, "job-pass: %s\n", qPrintable(said));
    return failed ? 1 : 0;
}
