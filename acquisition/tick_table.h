#pragma once
// The wiring at the top of the program: the named timers bound to the ticks
// of their subsystems, and the services the subsystems ask of the layers
// above them. main() and the tests' workstations call it once, before the
// start-up.

class Workstation;

namespace acq {

void Wire(Workstation& ws);

} // namespace acq
