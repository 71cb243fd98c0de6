// The once-a-second supervision of tmr_refresh: WITS life, custom channels,
// line lag, the instrument link and the chart refresh countdown.
#include "acq_fixture.h"

#include "acquisition/main_loop.h"

using acqtest::AcqTest;
using forms::color::Green;
using forms::color::Grey;
using forms::color::Orange;
using forms::color::Red;
using forms::color::Yellow;

namespace {

class Supervision : public AcqTest {
  protected:
    void SetUp() override {
        // Keep the link scan to the devices a test places (none by default).
        ws.ports.setScanDevices(false);
    }
    void tick(int n = 1) {
        for (int i = 0; i < n; ++i) acq::tmr_refresh_Timer(ws);
    }
    const forms::Control& lag() const { return ws.fm_Gas_Chart.lbl_Line_Lag; }
    const forms::Control& link() const { return ws.fm_Gas_Chart.cmd_comm1; }
};

TEST_F(Supervision, WitsLifeCountsDownAndAnOutageKeepsOnlyTheBitDepth) {
    ws.wits.Gwits_alive = 2;
    ws.wits.Gpumps_manual = true;
    ws.wits.Gwits_values.fill(5);
    tick();
    EXPECT_EQ(ws.wits.Gwits_alive, 1);
    EXPECT_FALSE(ws.wits.Gpumps_manual);
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_WITS_info), look("WITS Connected 1", Green));
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[7], 5);

    ws.more_data.wits_info.addItem("0108  Depth Bit (meas)  5");
    ws.more_data.lbl_bit_depth.setCaption("5.0");
    tick(); // 1 -> 0: still counted as connected on this tick
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.caption(), "WITS Connected 0");
    tick(); // now down
    EXPECT_EQ(ws.wits.Gwits_alive, 0);
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_WITS_info), look("WITS Disconnected", Red));
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_pumps), look("No Pump Data", Grey));
    EXPECT_TRUE(ws.more_data.wits_info.items().isEmpty());
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "");
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[0], 5);
    for (int i = 1; i <= 40; ++i) EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[i], 0) << i;
}

TEST_F(Supervision, CustomChannelsAreClearedWhenTheirHoldReachesOne) {
    ws.wits.Gwits_alive = 100; // keep the outage rule out of the way
    ws.wits.Gwits_custom_hold = 3;
    for (int i = 22; i <= 25; ++i) ws.wits.Gwits_values[i] = i;
    ws.wits.Gwits_values[21] = 21;
    tick();
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 2);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[22], 22);
    tick();
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 1);
    for (int i = 22; i <= 25; ++i) EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[i], 0) << i;
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[21], 21);
    // A later custom value is not cleared again by the remaining count.
    ws.wits.Gwits_values[23] = 7;
    tick(3);
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 0);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[23], 7);
}

TEST_F(Supervision, LineLagRunsDownOffBottomAndBackUpWhenDrilling) {
    ws.depth.Gline_lag_seconds = 4;
    ws.depth.Gline_lag_count = 4;
    ws.wits.Gwits_alive = 100; // the stream stays up through every tick here
    ws.wits.Gwits_values[1] = 1000;
    auto tickExpecting = [&](int count, bool ok) {
        tick();
        EXPECT_EQ(ws.depth.Gline_lag_count, count);
        EXPECT_EQ(ws.depth.Gline_lag_ok, ok) << count;
        EXPECT_EQ(look(lag()), look(QString(" Line Lag %1 ").arg(count), ok ? Green : Red));
    };
    // On bottom and pumping, at the full length: good.
    ws.wits.Gspm = 80;
    ws.wits.Gwits_values[0] = 1000;
    tickExpecting(4, true);
    // Pumps stopped and the bit 3 ft off bottom: the count runs down, the
    // gas good until it reaches 0, where it stays.
    ws.wits.Gspm = 0;
    ws.wits.Gwits_values[0] = 997;
    for (int count : {3, 2, 1, 0, 0}) tickExpecting(count, count > 0);
    // Stopped but on bottom (2 ft off counts as on bottom): it climbs back,
    // bad until full, and good from the tick after.
    ws.wits.Gwits_values[0] = 998;
    for (int count : {1, 2, 3, 4}) tickExpecting(count, false);
    tickExpecting(4, true);
    // A shorter length set meanwhile: the count comes down to it, good.
    ws.depth.Gline_lag_seconds = 2;
    tickExpecting(3, true);
}

TEST_F(Supervision, LineLagWithoutWitsOrForcedFollowsTheOverrideWhoseButtonFlashes) {
    auto& button = ws.fm_Gas_Chart.cmd_off_bottom_overide;
    ws.depth.Gline_lag_seconds = 90;
    ws.depth.Gline_lag_count = 12;
    ws.wits.Gwits_alive = 0;
    tick();
    EXPECT_EQ(ws.depth.Gline_lag_count, 90);
    EXPECT_TRUE(ws.depth.Gline_lag_ok);
    EXPECT_EQ(lag().caption(), " Line Lag 90");
    EXPECT_EQ(button.backColor(), Grey);

    ws.depth.Gline_lag_count = 12;
    ws.depth.Goff_bottom_mode = 1;
    ws.wits.Gwits_alive = 100;
    ws.loop.Gflash_state = true;
    tick();
    EXPECT_FALSE(ws.depth.Gline_lag_ok);
    EXPECT_EQ(look(lag()), look(" Line Lag OFF ", Red));
    EXPECT_EQ(ws.depth.Gline_lag_count, 12);
    EXPECT_EQ(button.backColor(), Orange);

    ws.depth.Goff_bottom_mode = 2;
    tick();
    EXPECT_TRUE(ws.depth.Gline_lag_ok);
    EXPECT_EQ(look(lag()), look(" Line Lag 90", Green));
    EXPECT_EQ(ws.depth.Gline_lag_count, 12); // forced on bottom does not reset it
    EXPECT_EQ(button.backColor(), Yellow);

    // The disable box takes the automatic case out of the WITS rules.
    ws.depth.Goff_bottom_mode = 0;
    ws.wits.Gspm = 0;
    ws.wits.Gwits_values[0] = 100;
    ws.wits.Gwits_values[1] = 500;
    ws.fm_setup.ck_disable_line_lag.setChecked(true);
    tick();
    EXPECT_EQ(ws.depth.Gline_lag_count, 90);
    EXPECT_TRUE(ws.depth.Gline_lag_ok);
    EXPECT_EQ(button.backColor(), Grey);
}

TEST_F(Supervision, FootSecondsShiftWhenTheWholeFootChanges) {
    ws.packet.Gombri_data_array[acq::DEPTH] = "100.2";
    ws.depth.Glast_whole_foot = 100;
    tick(3);
    EXPECT_DOUBLE_EQ(ws.depth.Grop_seconds_0, 3);
    ws.packet.Gombri_data_array[acq::DEPTH] = "100.9";
    tick();
    EXPECT_DOUBLE_EQ(ws.depth.Grop_seconds_0, 4);
    ws.packet.Gombri_data_array[acq::DEPTH] = "101.1";
    tick();
    EXPECT_DOUBLE_EQ(ws.depth.Grop_seconds_0, 0);
    EXPECT_DOUBLE_EQ(ws.depth.Grop_seconds_1, 5);
    EXPECT_DOUBLE_EQ(ws.depth.Glast_whole_foot, 101.1);
    ws.depth.Gtotal_strokes = 12345;
    tick();
    EXPECT_EQ(ws.fm_Gas_Chart.txt_TotalStr.text(), "Total Strokes: 12345");
}

TEST_F(Supervision, RefreshCountsDownAndStartsOverAtTheSetPeriod) {
    auto& b = ws.fm_Gas_Chart.cmd_refresh;
    ws.chart.Grefresh_seconds = 30;
    ws.chart.Grefresh_count = 2;
    tick();
    EXPECT_EQ(look(b), look("Refresh 2", Green));
    EXPECT_EQ(ws.chart.Grefresh_count, 1);
    tick(); // reaches 0: refresh and start over
    EXPECT_EQ(b.caption(), "Refresh 1");
    EXPECT_EQ(ws.chart.Grefresh_count, 30);
    tick();
    EXPECT_EQ(b.caption(), "Refresh 30");

    ws.chart.Grefresh_paused = true;
    tick(5);
    EXPECT_EQ(look(b), look("Refresh Off", Red));
    EXPECT_EQ(ws.chart.Grefresh_count, 29);
}

TEST_F(Supervision, FirstScanFiveSecondsAfterStartThenEvery61AndNoCountBelowZero) {
    // The count of every caption the button is given, including those the
    // scan itself sets on the way.
    QStringList counts;
    ws.fm_Gas_Chart.cmd_comm1.listen([&](const forms::Control& c, forms::Prop p) {
        if (p == forms::Prop::Caption && c.caption().startsWith("Kettlewick Disconnected "))
            counts << c.caption().section(' ', -1);
    });
    ASSERT_EQ(ws.link.Glink_countdown, 5);
    ws.link.Gdetector_found = true; // not connected without an open port
    tick(4);
    EXPECT_EQ(counts, QStringList({"4", "3", "2", "1"}));
    EXPECT_EQ(link().backColor(), Red);
    tick(); // the fifth second: the scan starts and the watchdog is reset
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    EXPECT_FALSE(ws.link.Gdetector_found);
    tick(60);
    EXPECT_EQ(ws.link.Glink_countdown, 1);
    tick();
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    // A count that stands at 0 is shown as 0 and starts over.
    ws.link.Glink_countdown = 0;
    tick();
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    ASSERT_EQ(counts.size(), 67);
    EXPECT_EQ(counts.last(), "0");
    EXPECT_EQ(counts.count("0"), 3);
    for (const QString& c : counts)
        EXPECT_TRUE(c.toUInt() <= 60 && c[0].isDigit()) << c.toStdString();
}

TEST_F(Supervision, ForcedOffStopsTheWatchdog) {
    ws.link.Glink_mode = 0;
    ws.link.Glink_countdown = 1;
    const QString before = link().caption();
    tick(10);
    EXPECT_EQ(ws.link.Glink_countdown, 1);
    EXPECT_EQ(link().caption(), before);
}

TEST_F(Supervision, TcpCaptionsShowTheStateOrTheUptime) {
    ws.link.Guse_tcp = true;
    ws.link.Glink_countdown = 20;
    ws.link.Gsock_state = 6;
    ws.link.Gsock_state_text = "Port connecting";
    tick();
    EXPECT_EQ(look(link()), look("19  Port connecting", Red));

    ws.link.Gsock_state = 7;
    ws.link.Guptime_percent = 100;
    tick();
    EXPECT_EQ(look(link()), look("Connected: 18 TCP 100%", Green));
}

TEST_F(Supervision, ASerialLinkWithTheDetectorFoundShowsConnected) {
    acqtest::PtyPair pty;
    ASSERT_NO_FATAL_FAILURE(openSerial(pty, 2));
    ws.link.Glink_countdown = 40;
    ws.link.Gdetector_found = true;
    ws.link.Guptime_percent = 0; // serial is green whatever the uptime
    tick();
    EXPECT_EQ(look(link()), look("Kettlewick Connected: 39", Green));

    ws.packet.Gtransfer_active = true;
    tick();
    EXPECT_EQ(link().caption(), "Kettlewick In Transfer");
    EXPECT_EQ(ws.link.Glink_countdown, 39); // the watchdog rests during a transfer
    ws.MSComm1.SetPortOpen(false);
}

} // namespace
