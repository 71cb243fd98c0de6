// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "chromatograph/chro_timers.h"

namespace chromatograph {
void fm_chro_Timer1_Timer(Workstation&) {}
void fm_chro_Timer2_Timer(Workstation&) {}
} // namespace chromatograph
