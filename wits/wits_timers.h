#pragma once
// The timers of the local WITS link.

class Workstation;

namespace wits {

void tmr_WITSDataArrival_Timer(Workstation& ws);
void tmr_Serial_WITS_Timer(Workstation& ws);
void tmr_Send_WITS_Timer(Workstation& ws);
void tmr_ROP_Timer_Timer(Workstation& ws);
void tmr_Keep_WITS_Connected_Timer(Workstation& ws);

} // namespace wits
