// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "alarms/alarm_monitor.h"

namespace alarms {
void tmr_alarm_mon_Timer(Workstation&) {}
} // namespace alarms
