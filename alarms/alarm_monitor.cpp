// The monitor's pass: once a second the foot clock runs and the repeat
// countdown falls; when it runs out the table of conditions is tested, and
// an alarm that holds is shown in the alarm box with one sound.
#include "alarms/alarm_monitor.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcAlarms, "gaschart.alarms", QtInfoMsg)

namespace alarms {

namespace {
constexpr int32_t kFootSecondsCap = 100000;
// However small the operator's repeat, the conditions are tested at most
// every five seconds.
constexpr int32_t kShortestRepeat = 5;
} // namespace

void Set_Alarm_Time(Workstation& ws) {
    auto& s = ws.fm_setup;
    const QString typed = s.txt_al_date.text() + " " + s.txt_al_time.text();
    if (const auto t = text::ParseDateTime(typed)) {
        ws.alarms.alarm_time = *t;
        ws.alarms.badAlarmTime.clear();
    } else if (typed != ws.alarms.badAlarmTime) {
        ws.alarms.badAlarmTime = typed;
        station::disply_text_alarms(ws, "Set Alarm Time Err: Type mismatch " + typed);
    }
    s.lbl_al_timedate.setCaption("Next Alarm at: " + text::GeneralDate(ws.alarms.alarm_time));
}

bool playwav(Workstation& ws, const QString& file_name) {
    if (!ws.sound.onFailed) {
        ws.sound.onFailed = [&ws](const QString& file) {
            ++ws.alarms.soundFailures;
            qCWarning(lcAlarms) << "alarm sound could not be played:" << file;
        };
    }
    QString why;
    if (ws.sound.Play(file_name, why)) return true;
    ++ws.alarms.soundFailures;
    qCWarning(lcAlarms) << "alarm sound not played:" << file_name << why;
    return false;
}

void tmr_alarm_mon_Timer(Workstation& ws) {
    auto& a = ws.alarms;
    Set_Alarm_Time(ws);
    a.alarm_foot_seconds = std::min(a.alarm_foot_seconds + 1, kFootSecondsCap);

    if (a.alarm_repeat_countdown > 0) --a.alarm_repeat_countdown;
    if (a.alarm_repeat_countdown != 0) return;
    a.alarm_repeat_countdown = std::max(
        text::CLng(text::RoundEven(text::Val(ws.fm_setup.txt_al_repeat.text()))), kShortestRepeat);

    a.alarm_message.clear();
    bool raised = false;
    for (const AlarmCondition& c : AlarmConditions()) {
        if (!(ws.fm_setup.*c.sw).checked() || !c.holds(ws)) continue;
        raised = true;
        if (c.message) a.alarm_message = QString::fromLatin1(c.message);
    }
    if (!raised) return;
    ++a.alarmsRaised;
    // A sound that can't be played still leaves the box set.
    playwav(ws, ws.fm_setup.txt_wav_file.text());
    auto& box = ws.fm_Gas_Chart.txt_KW_err;
    box.setText(a.alarm_message);
    box.setBackColor(forms::color::Orange);
    a.alarmMonitorText = a.alarm_message;
}

} // namespace alarms
