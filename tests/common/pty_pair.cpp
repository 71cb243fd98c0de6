#include "pty_pair.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

namespace testkit {

bool PtyPair::start() {
    QDir().mkpath(dir_);
    proc_.start("socat",
                {"pty,raw,echo=0,link=" + workstationEnd(), "pty,raw,echo=0,link=" + farEnd()});
    if (!proc_.waitForStarted(3000)) return false;
    for (int i = 0; i < 100; ++i) {
        if (QFileInfo::exists(workstationEnd()) && QFileInfo::exists(farEnd())) return true;
        QThread::msleep(30);
    }
    return false;
}

void PtyPair::stop() {
    if (proc_.state() == QProcess::NotRunning) return;
    proc_.terminate();
    if (!proc_.waitForFinished(3000)) proc_.kill();
    proc_.waitForFinished(2000);
}

} // namespace testkit
