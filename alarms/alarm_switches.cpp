// The alarm settings' own handlers: arming the foot tests, clearing the box
// when a test is switched off, and the alarm sound's file.
#include "alarms/alarm_monitor.h"
#include "text/numbers.h"
#include "workstation/packet_state.h"
#include "workstation/workstation.h"

#include <QDir>
#include <QFileInfo>

namespace alarms {

namespace {

double WholeDepth(const Workstation& ws) {
    return text::Fix(text::Val(ws.packet.Gombri_data_array[acq::DEPTH]));
}

void ClearAlarmBox(Workstation& ws) {
    auto& box = ws.fm_Gas_Chart.txt_KW_err;
    box.setText("");
    box.setBackColor(forms::color::White);
    ws.alarms.alarmMonitorText.clear();
}

bool Starting(const Workstation& ws) {
    return ws.loop.Gstarting_up;
}

} // namespace

void ch_next_ft_Click(Workstation& ws) {
    if (Starting(ws)) return;
    if (ws.fm_setup.ch_next_ft.checked()) {
        // Set once: the alarm then stands from that foot on.
        ws.alarms.alarm_foot = WholeDepth(ws) + 1;
    } else {
        ClearAlarmBox(ws);
        ws.alarms.alarm_foot = 0;
    }
}

void ck_long_ft_Click(Workstation& ws) {
    if (Starting(ws)) return;
    if (ws.fm_setup.ck_long_ft.checked()) {
        ws.alarms.alarm_foot_seconds = 0;
        ws.alarms.alarm_foot = WholeDepth(ws);
    } else {
        ClearAlarmBox(ws);
    }
}

void ck_high_gu_Click(Workstation& ws) {
    if (!Starting(ws) && !ws.fm_setup.ck_high_gu.checked()) ClearAlarmBox(ws);
}

void ck_timedate_Click(Workstation& ws) {
    if (!Starting(ws) && !ws.fm_setup.ck_timedate.checked()) ClearAlarmBox(ws);
}

void ck_drill_off_Click(Workstation& ws) {
    if (Starting(ws) || ws.fm_setup.ck_drill_off.checked()) return;
    ClearAlarmBox(ws);
    for (int i = 0; i <= 103; ++i) ws.alarms.drill_off_rates[i] = 0;
}

void cmd_browse_wav_Click(Workstation& ws) {
    const QString current = ws.fm_setup.txt_wav_file.text();
    const QFileInfo at(current);
    const QString start = at.isAbsolute() && at.dir().exists() ? at.absolutePath() : ws.programDir;
    const QString chosen =
        ws.dialogs().OpenFile("SELECT *.WAV FILE FOR ALARM",
                              "Wave File (*.WAV) | *.wav;*.WAV | All Files (*.*) | *.*", start);
    if (!chosen.isEmpty()) ws.fm_setup.txt_wav_file.setText(chosen);
}

void wav_test_Click(Workstation& ws) {
    playwav(ws, ws.fm_setup.txt_wav_file.text());
}

} // namespace alarms
