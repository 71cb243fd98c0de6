// Every suite runs with a Qt application object on the offscreen platform,
// so timers, sockets and painting work without a screen.
#include <QCoreApplication>
#include <QGuiApplication>
#include <QtGlobal>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
