#pragma once
// A real pseudo-terminal pair from socat: one end for the workstation's
// serial port, the other for the test that plays the instrument.

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace acqtest {

class PtyPair {
  public:
    ~PtyPair() {
        if (proc_.state() != QProcess::NotRunning) {
            proc_.terminate();
            if (!proc_.waitForFinished(2000)) proc_.kill();
            proc_.waitForFinished(2000);
        }
    }
    bool start() {
        proc_.start("socat", {"pty,raw,echo=0,link=" + workstationEnd(),
                              "pty,raw,echo=0,link=" + instrumentEnd()});
        if (!proc_.waitForStarted(3000)) return false;
        for (int i = 0; i < 50; ++i) {
            if (QFileInfo::exists(workstationEnd()) && QFileInfo::exists(instrumentEnd()))
                return true;
            QThread::msleep(50);
        }
        return false;
    }
    QString workstationEnd() const { return dir_.path() + "/ws"; }
    QString instrumentEnd() const { return dir_.path() + "/kw"; }

  private:
    QTemporaryDir dir_;
    QProcess proc_;
};

} // namespace acqtest
