// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "wits/wits_timers.h"

namespace wits {
void tmr_WITSDataArrival_Timer(Workstation&) {}
void tmr_Serial_WITS_Timer(Workstation&) {}
void tmr_Send_WITS_Timer(Workstation&) {}
void tmr_ROP_Timer_Timer(Workstation&) {}
void tmr_Keep_WITS_Connected_Timer(Workstation&) {}
} // namespace wits
