// The monitor's table of conditions, each with the switch that arms it.
// DEPTH and GASUNITS are the fields of the latest packet.
#include "alarms/alarm_monitor.h"
#include "text/numbers.h"
#include "workstation/packet_state.h"
#include "workstation/workstation.h"

namespace alarms {

using forms::FmSetup;

namespace {

double Field(const Workstation& ws, int i) {
    return text::Val(ws.packet.Gombri_data_array[i]);
}
double WholeDepth(const Workstation& ws) {
    return text::Fix(Field(ws, acq::DEPTH));
}
double Setting(const forms::Control& c) {
    return text::Val(c.text());
}

bool InstrumentAlarm(Workstation& ws) {
    return ws.packet.Glast_alarm_number >= 1;
}
bool LostWits(Workstation& ws) {
    return ws.fm_Gas_Chart.cmd_WITS_info.backColor() != forms::color::Green;
}
bool LostLink(Workstation& ws) {
    return ws.fm_Gas_Chart.cmd_comm1.backColor() != forms::color::Green;
}
bool FootChange(Workstation& ws) {
    return WholeDepth(ws) >= ws.alarms.alarm_foot;
}
bool LongFoot(Workstation& ws) {
    auto& a = ws.alarms;
    // Moves the shared reference along: a foot change test armed at the same
    // time then compares against the foot in progress.
    if (WholeDepth(ws) != a.alarm_foot) {
        a.alarm_foot = WholeDepth(ws);
        a.alarm_foot_seconds = 0;
    }
    return a.alarm_foot_seconds > Setting(ws.fm_setup.txt_long_ft) * 60;
}
bool BitDepth(Workstation& ws) {
    return Setting(ws.fm_setup.txt_al_bit_depth) <= ws.wits.Gwits_values[0];
}
bool HoleDepth(Workstation& ws) {
    return text::Fix(Setting(ws.fm_setup.txt_al_depth)) <= WholeDepth(ws);
}
bool LagDepth(Workstation& ws) {
    return Setting(ws.fm_setup.txt_al_lag_depth) <=
           text::Val(ws.more_data.lbl_current_lag_depth.caption());
}
bool HighGas(Workstation& ws) {
    // Strictly above: gas exactly at the threshold is no alarm.
    return text::Fix(Field(ws, acq::GASUNITS)) > text::Fix(Setting(ws.fm_setup.txt_high_gu));
}
bool TimePassed(Workstation& ws) {
    return ws.alarms.alarm_time.isValid() && ws.Now() > ws.alarms.alarm_time;
}
bool DrillOff(Workstation& ws) {
    auto& a = ws.alarms;
    auto& rates = a.drill_off_rates;
    if (WholeDepth(ws) != a.drill_off_foot) {
        a.drill_off_foot = WholeDepth(ws);
        for (int i = 101; i >= 1; --i) rates[i] = rates[i - 1];
        rates[0] = Field(ws, acq::MINFT);
    }
    auto& feetBox = ws.fm_setup.txt_drill_off_ft;
    if (Setting(feetBox) < 1) feetBox.setText("1");
    if (Setting(feetBox) > 100) feetBox.setText("100");
    const double n = Setting(feetBox);
    const double r = Setting(ws.fm_setup.txt_drill_off_rop);
    // Feet at R minutes or faster, newest first; an empty element is memory
    // not yet filled and ends the count.
    int i = 0;
    const int last = text::CInt(n);
    while (i <= last) {
        if (rates[i] == 0 || r < rates[i]) break;
        ++i;
    }
    return n - 1 <= i;
}

} // namespace

const std::vector<AlarmCondition>& AlarmConditions() {
    static const std::vector<AlarmCondition> table = {
        {"instrument alarm", &FmSetup::ck_alarm_on_kw_al, &InstrumentAlarm, nullptr},
        {"lost WITS", &FmSetup::ck_lost_WITS, &LostWits, "WITS Disconnected"},
        {"lost link", &FmSetup::ck_lost_kw_con, &LostLink, "Kettlewick Disconnected"},
        {"foot change", &FmSetup::ch_next_ft, &FootChange, "Foot Change Alarm"},
        {"long foot", &FmSetup::ck_long_ft, &LongFoot, "Long Foot Alarm"},
        {"bit depth", &FmSetup::ck_al_bit_depth, &BitDepth, "Bit Depth Alarm"},
        {"hole depth", &FmSetup::ck_al_depth, &HoleDepth, "Hole Depth Alarm"},
        {"lag depth", &FmSetup::ck_al_lag_depth, &LagDepth, "Lag Depth Alarm"},
        {"high gas units", &FmSetup::ck_high_gu, &HighGas, "High Gas Units Alarm"},
        {"time", &FmSetup::ck_timedate, &TimePassed, "Time Alarm"},
        {"drill off", &FmSetup::ck_drill_off, &DrillOff, "Drill Off / Drilling Break"},
    };
    return table;
}

} // namespace alarms
