// The screen suites need the widget application object, on the offscreen
// platform unless a display is asked for, and a private runtime folder.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QtGlobal>
#include <gtest/gtest.h>

namespace {
// The offscreen platform says so each time a window is raised or sized by
// its content; that is the platform's limit, not a fault of the screens.
QtMessageHandler platformDefault = nullptr;
void quietPlatform(QtMsgType type, const QMessageLogContext& ctx, const QString& msg) {
    if (msg.startsWith(QLatin1String("This plugin does not support"))) return;
    platformDefault(type, ctx, msg);
}
} // namespace

int main(int argc, char** argv) {
    platformDefault = qInstallMessageHandler(quietPlatform);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString dir = QDir::tempPath() + "/gaschart-test-runtime";
        QDir().mkpath(dir);
        QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                       QFileDevice::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", dir.toLocal8Bit());
    }
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
