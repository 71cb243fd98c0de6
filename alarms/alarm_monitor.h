#pragma once
// The alarm monitor's timer.

class Workstation;

namespace alarms {

void tmr_alarm_mon_Timer(Workstation& ws);

} // namespace alarms
