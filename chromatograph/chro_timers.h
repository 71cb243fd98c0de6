#pragma once
// The two timers of the chromatograph panel.

class Workstation;

namespace chromatograph {

void fm_chro_Timer1_Timer(Workstation& ws);
void fm_chro_Timer2_Timer(Workstation& ws);

} // namespace chromatograph
