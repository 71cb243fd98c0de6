#pragma once
// Waiting without blocking: the event loop goes on inside every wait, so the
// timers keep firing (that is how an instrument's reply reaches the parser
// during a port scan).

#include <QElapsedTimer>
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
// The pulse of a long job that writes files rather than records: it lets the
// event loop run once `everyMs` have passed since it last did, so the
// screen and the intake keep their pace however fast or slow the job's
// steps are on a busy machine. Asking costs a clock read.
class Pulse {
  public:
    explicit Pulse(Workstation& ws, qint64 everyMs = 20);
    // True when the loop was let run now.
    bool beat();
    // Whether `everyMs` have passed: a job that must first put its work in
    // order (commit a batch) asks, then beats now.
    bool due() const { return since_.elapsed() >= everyMs_; }
    // Lets the loop run now, whatever the time since it last did.
    void beatNow();

  private:
    Workstation& ws_;
    qint64 everyMs_;
    QElapsedTimer since_;
};

// Close every open panel whose name differs from name.
void UnloadAllForms(Workstation& ws, const QString& name);

} // namespace station
