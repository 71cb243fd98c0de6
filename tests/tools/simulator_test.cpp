// The simulator as a listener meets it over TCP.
#include "simulator.h"

#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(Simulator, ANewListenerHearsASampleLongBeforeTheIntervalAndTheRhythmGoesOn) {
    QTemporaryDir dir;
    testkit::Simulator sim(dir.filePath("sim.log"));
    const quint16 port = testkit::FreePort();
    // Samples every 8 seconds: the greeting must come well before that.
    ASSERT_TRUE(sim.start({"--tcp", QString::number(port), "--interval", "8"}));
    QTcpSocket listener;
    listener.connectToHost("127.0.0.1", port);
    ASSERT_TRUE(listener.waitForConnected(5000));
    QByteArray heard;
    auto lines = [&] {
        heard += listener.readAll();
        return heard.count('\n');
    };
    EXPECT_TRUE(testkit::PumpUntil(4000, [&] { return lines() >= 1; }))
        << "nothing within 4 s of connecting";
    EXPECT_TRUE(heard.startsWith('*')) << heard.left(40).toStdString();
    // The next one keeps the instrument's own rhythm, not another greeting.
    testkit::Pump(3000);
    EXPECT_EQ(lines(), 1);
    EXPECT_TRUE(testkit::PumpUntil(9000, [&] { return lines() >= 2; }));
    EXPECT_EQ(sim.count("PACKET "), 2);
}
