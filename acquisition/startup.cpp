#include "acquisition/startup.h"

#include "acquisition/link.h"
#include "acquisition/live_fields.h"
#include "chart/chart.h"
#include "config/config_file.h"
#include "config/setup_handlers.h"
#include "depth/lag.h"
#include "store/lifecycle.h"
#include "wits/wits_file.h"
#include "workstation/events.h"
#include "workstation/workstation.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

namespace acq {

QString MainTitle(const Workstation& ws) {
    if (ws.fm_Gas_Chart.minimized) return ws.packet.UnitSerial + " Ver " + station::Revision();
    return " Ombri Instruments Gas Chart  Version: " + station::Revision();
}

namespace {
// One running copy per program folder. The lock lives as long as the
// process; a stale lock of a crashed copy is taken over.
QLockFile::LockError TakeSingleCopyLock(Workstation& ws) {
    if (ws.singleCopyLock) return QLockFile::NoError;
    auto candidate = std::make_unique<QLockFile>(SingleCopyLockPath(ws));
    candidate->setStaleLockTime(0);
    if (!candidate->tryLock(100)) return candidate->error();
    ws.singleCopyLock = std::move(candidate);
    return QLockFile::NoError;
}
} // namespace

QString SingleCopyLockPath(const Workstation& ws) {
    return ws.programFile("gaschart.lock");
}

Refusal SingleCopyRefusal(QLockFile::LockError error, const QString& lockPath) {
    if (error == QLockFile::LockFailedError)
        return {"OOPS! COPY ALLREADY LOADED", "There is already a copy of this program\r\n"
                                              "running in memory.  This one will now close"};
    // Nobody else holds it: the lock could not be made at all, and saying
    // another copy runs would send the user looking for one that is not there.
    const QString folder = QFileInfo(lockPath).path();
    QString why;
    if (!QFileInfo(folder).isDir())
        why = "The folder " + folder + " does not exist.";
    else if (error == QLockFile::PermissionError)
        why = "This user may not write in " + folder + ".";
    else
        why = "The system refused to make it in " + folder + ".";
    return {"CANNOT START", "The lock file " + lockPath + " could not be made.\r\n" + why +
                                "\r\nThis one will now close"};
}

bool Form_Load(Workstation& ws) {
    auto& main = ws.fm_Gas_Chart;

    // 1. Scalar defaults.
    ws.chart.Grefresh_seconds = 180;
    ws.depth.Gline_lag_seconds = 120;
    ws.depth.Gline_lag_count = 120;
    ws.depth.Gline_lag_ok = true;
    ws.depth.Goff_bottom_mode = 0;
    ws.packet.Glast_alarm_text.clear();

    // 2. Empty viewer.
    clear_vis_fields(ws);

    // 3. The assignable WITS column starts on gamma.
    ws.chart.Gwits_column = 4;

    // 4. Flags.
    ws.link.Guptime_percent = 100;
    ws.loop.Gstarting_up = true;
    ws.packet.Gtransfer_active = false;
    ws.packet.Gtransfer_hold = false;
    ws.packet.Gtransfer_buffer.clear();
    ws.wits.Gpumps_manual = false;
    ws.wits.Gwits_alive = 0;
    main.cmd_WITS_info.setCaption("WITS Disconnected");
    main.cmd_WITS_info.setBackColor(forms::color::Red);
    ws.link.Guse_tcp = false;
    ws.link.Gsock_state = 0;
    ws.link.Gtcp_host.clear();
    ws.link.Gtcp_port.clear();

    // 5. Default paths under the program folder.
    main.txt_db_path.setText(ws.programFile("DB_CUE/V11_DEMO.DB"));
    ws.fm_setup.txt_stats_filename.setText(ws.programFile("DB_CUE/AUTOTALLY.TXT"));
    ws.fm_setup.txt_autogen_dir.setText(ws.programFile("DB_CUE"));
    ws.products.autogen_dir = ws.programDir;

    // 6. Settings, first read, and the WITS item names.
    config::ReadConfigFile(ws);
    wits::LoadWitsFile(ws);
    ws.products.Gdata_separator = "\t";

    // 7. Panels loaded hidden; the setup panel's load fills its lists,
    // alarm date and time, zone note and colours.
    for (forms::Panel* p : ws.panels())
        if (p != &main) p->form.setVisible(false);
    config::fm_setup_Load(ws);

    // 8. Link wanted, first attempt in 5 seconds.
    ws.link.Glink_countdown = 5;
    ws.link.Glink_mode = 1;
    main.cmd_comm1.setBackColor(forms::color::Red);

    // 9. Title and table.
    main.form.setCaption(MainTitle(ws));
    ws.db.Gtable_name = "OMBRI_DB_010";

    // 10. One running copy only.
    if (const QLockFile::LockError error = TakeSingleCopyLock(ws); error != QLockFile::NoError) {
        const Refusal refusal = SingleCopyRefusal(error, SingleCopyLockPath(ws));
        // The shell that started us hears it too: the box may stand on a
        // screen nobody watches.
        qWarning().noquote() << refusal.title + ": " + QString(refusal.text).replace("\r\n", " ");
        ws.dialogs().MsgBox(refusal.text, platform::Buttons::Ok, refusal.title,
                            platform::Icon::Stop);
        return false;
    }

    // 11. Message box and chart scales.
    main.txt_message.setText("");
    chart::SetChartDefaults(ws);

    // 12-14. The job: open and verify, newest record, stroke total, depth arrays.
    QString path;
    bool verify = true;
    store::OpenSharedDb(ws, path, verify);
    store::PrimeLastRecord(ws);
    depth::ReadLastTotalStrokes(ws);
    depth::Collect_ROP_Data(ws);

    // 15.
    station::disply_text_alarms(ws, "Use database version " + ws.db.Gtable_name);
    station::disply_text_alarms(ws, "Software Version: " + station::Revision());

    // 16.
    ws.StartTimers();
    ws.timer("tmr_refresh")->start();

    // 17. Settings, second read: it wins. The autogen folder always starts
    // as the program folder.
    config::ReadConfigFile(ws);
    ws.products.autogen_dir = ws.programDir;
    ws.fm_setup.txt_autogen_dir.setText(ws.products.autogen_dir);

    // 18.
    ws.loop.Gstarting_up = false;
    config::txt_gas_units_Change(ws);
    chart::make_chart(ws);

    // 19. Lag zones and one lag pass.
    depth::CreateLagTable(ws);
    depth::ReadLagTable(ws);
    depth::RecalculateLag(ws, 400, 0, 0);
    return true;
}

namespace {

void SaveSettings(Workstation& ws) {
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    config::WriteConfigFile(ws);
    depth::WriteLagTable(ws);
}

void CloseEverything(Workstation& ws) {
    ws.closing = true;
    ws.StopTimers();
    close_winsock(ws);
    Close_Serialport(ws);
    store::CloseSharedDb(ws);
    station::UnloadAllForms(ws, "fm_Gas_Chart");
}

} // namespace

bool Form_Unload(Workstation& ws) {
    SaveSettings(ws);
    if (ws.dialogs().MsgBox("Are you sure you want to exit?", platform::Buttons::YesNo,
                            "EXIT PROGRAM?", platform::Icon::Question) != platform::Answer::Yes)
        return false;
    CloseEverything(ws);
    return true;
}

void StopWithoutQuestion(Workstation& ws) {
    if (ws.closing) return;
    SaveSettings(ws);
    CloseEverything(ws);
}

} // namespace acq
