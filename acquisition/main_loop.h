#pragma once
// The main screen's timers: intake, supervision, the wait, the selection line's flicker and the
// database error service.

class Workstation;

namespace acq {

void tmrDataArrival_Timer(Workstation& ws);
void tmr_refresh_Timer(Workstation& ws);
void tmr_delay_Timer(Workstation& ws);
void tmr_color_change_Timer(Workstation& ws);
void tmr_DB_ERROR_Timer(Workstation& ws);

} // namespace acq
