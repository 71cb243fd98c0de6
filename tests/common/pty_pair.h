#pragma once
// A real serial line for the tests: a socat pair of pseudo-terminals, one end
// for the workstation's port, the other (the far end) for whoever plays the
// instrument or the rig recorder.

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace testkit {

class PtyPair {
  public:
    // Both ends are links in dir (a folder of its own when none is given),
    // so a pair made again in the same folder lands on the same names.
    explicit PtyPair(const QString& dir = {}) : dir_(dir.isEmpty() ? own_.path() : dir) {}
    ~PtyPair() { stop(); }
    bool start();
    void stop();
    QString workstationEnd() const { return dir_ + "/ws"; }
    QString farEnd() const { return dir_ + "/kw"; }

  private:
    QTemporaryDir own_;
    QString dir_;
    QProcess proc_;
};

} // namespace testkit
