// Every suite runs with a Qt application object on the offscreen platform,
// so timers, sockets and painting work without a screen.
#include "test_env.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testkit::PrepareTestEnvironment();
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
