#pragma once
// Waiting without blocking: the event loop goes on inside every wait, so the
// timers keep firing (that is how an instrument's reply reaches the parser
// during a port scan).

#include <QString>

class Workstation;

namespace station {

// Let the event loop run once.
void DoEvents(Workstation& ws);
// Wait for the next event (a timer tick at the latest) and run it.
void WaitEvents(Workstation& ws);
// Wait n seconds while the loop runs: Gdelay_ticks counts tenths down by
// tmr_delay.
void DelaySeconds(Workstation& ws, double n);
// Close every open panel whose name differs from name.
void UnloadAllForms(Workstation& ws, const QString& name);

} // namespace station
