// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "acquisition/timers.h"

namespace config {
void tmr_save_ini_Timer(Workstation&) {}
} // namespace config
