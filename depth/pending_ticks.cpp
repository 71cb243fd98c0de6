// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "acquisition/timers.h"

namespace depth {
void tmr_recalc_lag_Timer(Workstation&) {}
void tmr_lag_calc_Timer(Workstation&) {}
} // namespace depth
