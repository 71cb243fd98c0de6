#pragma once
// A pair of pseudo-terminals joined by socat: a real serial line on this
// machine. One end is the workstation's port, the other the far device's.

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace testkit {

class PtyPair {
  public:
    PtyPair() = default;
    ~PtyPair() { stop(); }
    PtyPair(const PtyPair&) = delete;
    PtyPair& operator=(const PtyPair&) = delete;
    // False when socat is missing or gave no pair within a few seconds.
    bool start();
    // Both ends vanish, as a cable pulled out of both sides would.
    void stop();
    QString workstationEnd() const { return dir_.path() + "/ws"; }
    QString deviceEnd() const { return dir_.path() + "/dev"; }

  private:
    QTemporaryDir dir_;
    QProcess proc_;
};

} // namespace testkit
