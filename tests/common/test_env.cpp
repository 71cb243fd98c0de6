#include "test_env.h"

#include <QDir>
#include <QFile>
#include <QtGlobal>

namespace testkit {

void PrepareTestEnvironment() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString dir = QDir::tempPath() + "/gaschart-test-runtime";
        QDir().mkpath(dir);
        QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                       QFileDevice::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", dir.toLocal8Bit());
    }
}

} // namespace testkit
