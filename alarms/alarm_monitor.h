#pragma once
// The alarm monitor: once a second it may test depth, gas, time and the
// health of the links, and at the operator's repeat interval shows one
// message in the main screen's alarm box and plays the alarm sound.

#include <QString>
#include <vector>

class Workstation;

namespace forms {
class Control;
struct FmSetup;
} // namespace forms

namespace alarms {

// One row of the monitor's table: the switch on the setup panel, the test,
// and the message it leaves in the alarm box (null: the flag alone, the
// text stays as the earlier rows left it).
struct AlarmCondition {
    const char* name;
    forms::Control forms::FmSetup::*sw;
    bool (*holds)(Workstation& ws);
    const char* message;
};
// In the order they are tested: the last that holds is the one shown.
const std::vector<AlarmCondition>& AlarmConditions();

void tmr_alarm_mon_Timer(Workstation& ws);
// alarm_time from the date and time boxes; a typing error leaves the old
// time in force.
void Set_Alarm_Time(Workstation& ws);
// Starts the wave file in the background; false when it can't be played.
bool playwav(Workstation& ws, const QString& file_name);

// Setup panel handlers of the alarm settings.
void ch_next_ft_Click(Workstation& ws);
void ck_long_ft_Click(Workstation& ws);
void ck_high_gu_Click(Workstation& ws);
void ck_timedate_Click(Workstation& ws);
void ck_drill_off_Click(Workstation& ws);
void cmd_browse_wav_Click(Workstation& ws);
void wav_test_Click(Workstation& ws);

} // namespace alarms
