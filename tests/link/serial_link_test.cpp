// The instrument on a socat serial pair: found by the scan, pulled and
// plugged back.
#include "acquisition/link.h"
#include "acquisition/main_loop.h"
#include "link_kit.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace linktest;

namespace {

void ExpectFound(Station& st, int port) {
    EXPECT_TRUE(st.ws.link.Gdetector_found);
    EXPECT_EQ(st.ws.link.Gcomm_port, port);
    EXPECT_TRUE(st.ws.MSComm1.PortOpen());
    EXPECT_EQ(st.ws.fm_Gas_Chart.cmd_comm1.caption(), "Kettlewick Connected");
    EXPECT_EQ(st.ws.fm_Gas_Chart.cmd_comm1.backColor(), forms::color::Green);
    EXPECT_EQ(st.ws.link.Glink_countdown, 61);
}

} // namespace

TEST(SerialLink, TheScanFindsTheInstrumentOnPortTwentyAgainOnceItsPortIsBack) {
    QTemporaryDir dir;
    auto pair = std::make_unique<PortPair>(dir.path());
    Station st;
    st.ws.fm_setup.ck_supp_echo.setChecked(true);
    ASSERT_TRUE(st.startSerialSimulator(*pair, 20, {"--interval", "0.3", "--first-packet", "1"}));
    Simulator& sim = *st.sim;
    acq::SerialFindKettlewick(st.ws);
    ExpectFound(st, 20);
    // One question on the one port that answered, in the first pass, and no
    // echo switched off while the box is ticked.
    EXPECT_EQ(sim.count("COMMAND ?"), 1);
    Pump(1000);
    EXPECT_EQ(sim.count("COMMAND ECHO OFF"), 0);
    st.ws.fm_setup.ck_supp_echo.setChecked(false);

    // The adapter is pulled: the port goes away under the open handle.
    pair.reset();
    ASSERT_TRUE(PumpUntil(3000, [&] { return !st.ws.MSComm1.PortOpen(); }));

    // A scan while it is gone finds nothing and says so.
    st.ws.link.Glink_countdown = 1;
    ASSERT_TRUE(st.superviseUntilAttempt());
    EXPECT_FALSE(st.ws.link.Gdetector_found);

    // Plugged back: the instrument finds its device again, and so does the
    // next scan, which switches the echo off.
    pair = std::make_unique<PortPair>(dir.path());
    ASSERT_TRUE(pair->start());
    ASSERT_TRUE(PumpUntil(5000, [&] { return sim.count("CONNECT") >= 2; }));
    st.ws.link.Glink_countdown = 1;
    ASSERT_TRUE(st.superviseUntilAttempt());
    ExpectFound(st, 20);
    ASSERT_TRUE(PumpUntil(2000, [&] { return sim.count("COMMAND ECHO OFF") == 1; }));
    Pump(2000);
    ASSERT_TRUE(st.stopSimulatorAndDrain());

    // Packets that shared a read with the banner are lost with it; every
    // one sent once the scan was done is stored, and nothing not sent whole.
    const QStringList log = sim.lines("");
    const std::set<long> stored = st.stored();
    int after = 0;
    for (auto i = log.indexOf("COMMAND ECHO OFF") + 1; i < log.size(); ++i)
        if (log[i].startsWith("PACKET ")) {
            ++after;
            EXPECT_TRUE(stored.count(log[i].mid(7).toLong())) << log[i].toStdString();
        }
    EXPECT_GE(after, 4);
    const std::set<long> sent = sim.sent();
    EXPECT_TRUE(std::includes(sent.begin(), sent.end(), stored.begin(), stored.end()));
}
