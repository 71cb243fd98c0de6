// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "stats/statistics.h"

namespace stats {
void tmr_calc_stats_Timer(Workstation&) {}
} // namespace stats
