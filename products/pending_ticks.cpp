// Timer ticks of this subsystem whose work is not built yet: each runs and
// does nothing until its subsystem lands.
#include "products/autogen.h"

namespace products {
void tmr_autogen_Timer(Workstation&) {}
} // namespace products
