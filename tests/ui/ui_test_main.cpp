// The screen suites need the widget application object.
#include "test_env.h"

#include <QApplication>
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
    testkit::PrepareTestEnvironment();
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
