// The report's countdown and the Statistics tab's own controls.
#include "stats/statistics.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

#include <QFileInfo>

namespace stats {

namespace {

// Reports closer together than this would have the job read over and over.
constexpr double kFewestMinutes = 20;

void ShowCountdown(Workstation& ws) {
    ws.fm_setup.lbl_Stats_Countdown.setCaption(QString::number(ws.settings.stats_countdown));
}

void RestartCountdown(Workstation& ws) {
    ws.settings.stats_countdown =
        text::CLng(text::Val(ws.fm_setup.txt_autotally_minutes.text()) * 60);
    ShowCountdown(ws);
}

} // namespace

void tmr_calc_stats_Timer(Workstation& ws) {
    auto& count = ws.settings.stats_countdown;
    if (count > 0) {
        --count;
        if (count == 0) {
            if (ws.stats.running) {
                // The run in hand lets the loop turn; this one waits for it
                // and starts a second after it ends.
                count = 1;
            } else {
                RestartCountdown(ws);
                Generate_Stats_Report(ws);
            }
        }
    }
    ShowCountdown(ws);
}

void cmd_calculate_stats_Click(Workstation& ws) {
    ws.settings.stats_countdown = 1;
    ws.stats.byHand = true;
}

void txt_autotally_minutes_Commit(Workstation& ws) {
    if (ws.loop.Gstarting_up) return;
    auto& box = ws.fm_setup.txt_autotally_minutes;
    if (text::Val(box.text()) < kFewestMinutes) box.setText("20");
    RestartCountdown(ws);
}

void txt_autotally_minutes_Change(Workstation& ws) {
    if (ws.loop.Gstarting_up) return;
    RestartCountdown(ws);
}

void cmd_autotally_browse_Click(Workstation& ws) {
    auto& box = ws.fm_setup.txt_stats_filename;
    const QString name = ws.dialogs().SaveFile(
        "SELECT *.TXT FILE FOR AUTOTALLY",
        "Wave File (*.TXT) | *.txt;*.TXT | All Files (*.*) | *.*", QFileInfo(box.text()).path());
    if (!name.isEmpty()) box.setText(name);
}

} // namespace stats
