// The instrument hangs up mid-packet twenty times in a row. Each time the
// workstation sees the link go, counts down, connects again, and no packet
// that went out whole is missing from what it took and stored: the half line
// waits in the buffer until the instrument's greeting on the new connection
// clears it. The workstation's clock runs five times faster (the delay
// counter every 20 ms, the intake every 40 ms), and so does the instrument.
#include "acquisition/main_loop.h"
#include "link_kit.h"

#include <gtest/gtest.h>

using namespace linktest;

TEST(Reconnect, TwentyDropsLoseNothingThatWasSentWhole) {
    constexpr int kDrops = 20;
    Station st;
    const quint16 port = FreePort();
    Simulator sim(st.folder.file("sim.log"));
    ASSERT_TRUE(sim.start({"--tcp", QString::number(port), "--interval", "0.2", "--drop-every", "6",
                           "--first-packet", "1", "--seed", "3", "--greet"}));
    st.useTcp(port);
    st.ws.timer("tmr_delay")->setInterval(20);
    st.ws.timer("tmrDataArrival")->setInterval(40);
    st.startIntake();
    st.ws.link.Glink_countdown = 1;

    for (int drop = 1; drop <= kDrops; ++drop) {
        ASSERT_TRUE(st.superviseUntilAttempt());
        ASSERT_EQ(sim.count("CONNECT"), drop) << "no reconnect before drop " << drop;
        ASSERT_TRUE(PumpUntil(15000,
                              [&] {
                                  return sim.count("DROP") >= drop && st.ws.link.Gsock_state != 7 &&
                                         st.drained();
                              }))
            << "drop " << drop << " not seen";
        // what the operator sees between a drop and the next connection
        acq::tmr_refresh_Timer(st.ws);
        EXPECT_EQ(st.ws.link.Guptime_percent, 0);
        EXPECT_EQ(st.ws.fm_Gas_Chart.cmd_comm1.backColor(), forms::color::Red);
        EXPECT_TRUE(
            st.ws.fm_Gas_Chart.cmd_comm1.caption().endsWith("  " + st.ws.link.Gsock_state_text));
        EXPECT_GT(st.ws.link.Glink_countdown, 0);
    }
    sim.stop();

    const std::set<long> sent = sim.sent();
    ASSERT_EQ(sent.size(), size_t(kDrops * 6));
    // The half packets never make a row, the whole ones all do.
    EXPECT_EQ(st.stored(), sent);
}
