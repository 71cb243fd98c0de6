// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "acquisition/timers.h"

namespace products {
void tmr_autogen_Timer(Workstation&) {}
} // namespace products
