// The once-a-second supervision of tmr_refresh: WITS life, custom channels,
// line lag, the instrument link and the chart refresh countdown.
#include "acq_fixture.h"

#include "acquisition/timers.h"

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
    auto& rt = ws.rt;
    rt.Gwits_alive = 2;
    rt.Gpumps_manual = true;
    rt.Gwits_values.fill(5);
    tick();
    EXPECT_EQ(rt.Gwits_alive, 1);
    EXPECT_FALSE(rt.Gpumps_manual);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.caption(), "WITS Connected 1");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.backColor(), Green);
    EXPECT_DOUBLE_EQ(rt.Gwits_values[7], 5);

    ws.more_data.wits_info.addItem("0108  Depth Bit (meas)  5");
    ws.more_data.lbl_bit_depth.setCaption("5.0");
    tick(); // 1 -> 0: still counted as connected on this tick
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.caption(), "WITS Connected 0");
    tick(); // now down
    EXPECT_EQ(rt.Gwits_alive, 0);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.caption(), "WITS Disconnected");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.backColor(), Red);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.caption(), "No Pump Data");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.backColor(), Grey);
    EXPECT_TRUE(ws.more_data.wits_info.items().isEmpty());
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "");
    EXPECT_DOUBLE_EQ(rt.Gwits_values[0], 5);
    for (int i = 1; i <= 40; ++i) EXPECT_DOUBLE_EQ(rt.Gwits_values[i], 0) << i;
}

TEST_F(Supervision, CustomChannelsAreClearedWhenTheirHoldReachesOne) {
    auto& rt = ws.rt;
    rt.Gwits_alive = 100; // keep the outage rule out of the way
    rt.Gwits_custom_hold = 3;
    for (int i = 22; i <= 25; ++i) rt.Gwits_values[i] = i;
    rt.Gwits_values[21] = 21;
    tick();
    EXPECT_EQ(rt.Gwits_custom_hold, 2);
    EXPECT_DOUBLE_EQ(rt.Gwits_values[22], 22);
    tick();
    EXPECT_EQ(rt.Gwits_custom_hold, 1);
    for (int i = 22; i <= 25; ++i) EXPECT_DOUBLE_EQ(rt.Gwits_values[i], 0) << i;
    EXPECT_DOUBLE_EQ(rt.Gwits_values[21], 21);
    // A later custom value is not cleared again by the remaining count.
    rt.Gwits_values[23] = 7;
    tick(3);
    EXPECT_EQ(rt.Gwits_custom_hold, 0);
    EXPECT_DOUBLE_EQ(rt.Gwits_values[23], 7);
}

TEST_F(Supervision, LineLagRunsDownOffBottomAndBackUpWhenDrilling) {
    auto& rt = ws.rt;
    rt.Gline_lag_seconds = 4;
    rt.Gline_lag_count = 4;
    rt.Gwits_alive = 100; // the stream stays up through every tick here
    rt.Gwits_values[1] = 1000;
    auto tickExpecting = [&](int count, bool ok) {
        tick();
        EXPECT_EQ(rt.Gline_lag_count, count);
        EXPECT_EQ(rt.Gline_lag_ok, ok) << count;
        EXPECT_EQ(lag().backColor(), ok ? Green : Red) << count;
        EXPECT_EQ(lag().caption(), QString(" Line Lag %1 ").arg(count));
    };
    // On bottom and pumping, at the full length: good.
    rt.Gspm = 80;
    rt.Gwits_values[0] = 1000;
    tickExpecting(4, true);
    // Pumps stopped and the bit 3 ft off bottom: the count runs down, the
    // gas good until it reaches 0, where it stays.
    rt.Gspm = 0;
    rt.Gwits_values[0] = 997;
    for (int count : {3, 2, 1, 0, 0}) tickExpecting(count, count > 0);
    // Stopped but on bottom (2 ft off counts as on bottom): it climbs back,
    // bad until full, and good from the tick after.
    rt.Gwits_values[0] = 998;
    for (int count : {1, 2, 3, 4}) tickExpecting(count, false);
    tickExpecting(4, true);
    // A shorter length set meanwhile: the count comes down to it, good.
    rt.Gline_lag_seconds = 2;
    tickExpecting(3, true);
}

TEST_F(Supervision, LineLagWithoutWitsOrForcedFollowsTheOverrideWhoseButtonFlashes) {
    auto& rt = ws.rt;
    auto& button = ws.fm_Gas_Chart.cmd_off_bottom_overide;
    rt.Gline_lag_seconds = 90;
    rt.Gline_lag_count = 12;
    rt.Gwits_alive = 0;
    tick();
    EXPECT_EQ(rt.Gline_lag_count, 90);
    EXPECT_TRUE(rt.Gline_lag_ok);
    EXPECT_EQ(lag().caption(), " Line Lag 90");
    EXPECT_EQ(button.backColor(), Grey);

    rt.Gline_lag_count = 12;
    rt.Goff_bottom_mode = 1;
    rt.Gwits_alive = 100;
    rt.Gflash_state = true;
    tick();
    EXPECT_FALSE(rt.Gline_lag_ok);
    EXPECT_EQ(lag().backColor(), Red);
    EXPECT_EQ(lag().caption(), " Line Lag OFF ");
    EXPECT_EQ(rt.Gline_lag_count, 12);
    EXPECT_EQ(button.backColor(), Orange);

    rt.Goff_bottom_mode = 2;
    tick();
    EXPECT_TRUE(rt.Gline_lag_ok);
    EXPECT_EQ(lag().backColor(), Green);
    EXPECT_EQ(lag().caption(), " Line Lag 90");
    EXPECT_EQ(rt.Gline_lag_count, 12); // forced on bottom does not reset it
    EXPECT_EQ(button.backColor(), Yellow);

    // The disable box takes the automatic case out of the WITS rules.
    rt.Goff_bottom_mode = 0;
    rt.Gspm = 0;
    rt.Gwits_values[0] = 100;
    rt.Gwits_values[1] = 500;
    ws.fm_setup.ck_disable_line_lag.setChecked(true);
    tick();
    EXPECT_EQ(rt.Gline_lag_count, 90);
    EXPECT_TRUE(rt.Gline_lag_ok);
    EXPECT_EQ(button.backColor(), Grey);
}

TEST_F(Supervision, FootSecondsShiftWhenTheWholeFootChanges) {
    auto& rt = ws.rt;
    rt.Gombri_data_array[acq::DEPTH] = "100.2";
    rt.Glast_whole_foot = 100;
    tick(3);
    EXPECT_DOUBLE_EQ(rt.Grop_seconds_0, 3);
    rt.Gombri_data_array[acq::DEPTH] = "100.9";
    tick();
    EXPECT_DOUBLE_EQ(rt.Grop_seconds_0, 4);
    rt.Gombri_data_array[acq::DEPTH] = "101.1";
    tick();
    EXPECT_DOUBLE_EQ(rt.Grop_seconds_0, 0);
    EXPECT_DOUBLE_EQ(rt.Grop_seconds_1, 5);
    EXPECT_DOUBLE_EQ(rt.Glast_whole_foot, 101.1);
    rt.Gtotal_strokes = 12345;
    tick();
    EXPECT_EQ(ws.fm_Gas_Chart.txt_TotalStr.text(), "Total Strokes: 12345");
}

TEST_F(Supervision, RefreshCountsDownAndStartsOverAtTheSetPeriod) {
    auto& rt = ws.rt;
    auto& b = ws.fm_Gas_Chart.cmd_refresh;
    rt.Grefresh_seconds = 30;
    rt.Grefresh_count = 2;
    tick();
    EXPECT_EQ(b.caption(), "Refresh 2");
    EXPECT_EQ(b.backColor(), Green);
    EXPECT_EQ(rt.Grefresh_count, 1);
    tick(); // reaches 0: refresh and start over
    EXPECT_EQ(b.caption(), "Refresh 1");
    EXPECT_EQ(rt.Grefresh_count, 30);
    tick();
    EXPECT_EQ(b.caption(), "Refresh 30");

    rt.Grefresh_paused = true;
    tick(5);
    EXPECT_EQ(b.caption(), "Refresh Off");
    EXPECT_EQ(b.backColor(), Red);
    EXPECT_EQ(rt.Grefresh_count, 29);
}

TEST_F(Supervision, FirstScanFiveSecondsAfterStartThenEvery61AndNoCountBelowZero) {
    auto& rt = ws.rt;
    // The count of every caption the button is given, including those the
    // scan itself sets on the way.
    QStringList counts;
    ws.fm_Gas_Chart.cmd_comm1.listen([&](const forms::Control& c, forms::Prop p) {
        if (p == forms::Prop::Caption && c.caption().startsWith("Kettlewick Disconnected "))
            counts << c.caption().section(' ', -1);
    });
    ASSERT_EQ(rt.Glink_countdown, 5);
    rt.Gdetector_found = true; // not connected without an open port
    tick(4);
    EXPECT_EQ(counts, QStringList({"4", "3", "2", "1"}));
    EXPECT_EQ(link().backColor(), Red);
    tick(); // the fifth second: the scan starts and the watchdog is reset
    EXPECT_EQ(rt.Glink_countdown, 61);
    EXPECT_FALSE(rt.Gdetector_found);
    tick(60);
    EXPECT_EQ(rt.Glink_countdown, 1);
    tick();
    EXPECT_EQ(rt.Glink_countdown, 61);
    // A count that stands at 0 is shown as 0 and starts over.
    rt.Glink_countdown = 0;
    tick();
    EXPECT_EQ(rt.Glink_countdown, 61);
    ASSERT_EQ(counts.size(), 67);
    EXPECT_EQ(counts.last(), "0");
    EXPECT_EQ(counts.count("0"), 3);
    for (const QString& c : counts) {
        bool ok = false;
        const int n = c.toInt(&ok);
        EXPECT_TRUE(ok) << c.toStdString();
        EXPECT_GE(n, 0);
        EXPECT_LE(n, 60);
    }
}

TEST_F(Supervision, ForcedOffStopsTheWatchdog) {
    auto& rt = ws.rt;
    rt.Glink_mode = 0;
    rt.Glink_countdown = 1;
    const QString before = link().caption();
    tick(10);
    EXPECT_EQ(rt.Glink_countdown, 1);
    EXPECT_EQ(link().caption(), before);
}

TEST_F(Supervision, TcpCaptionsShowTheStateOrTheUptime) {
    auto& rt = ws.rt;
    rt.Guse_tcp = true;
    rt.Glink_countdown = 20;
    rt.Gsock_state = 6;
    rt.Gsock_state_text = "Port connecting";
    tick();
    EXPECT_EQ(link().caption(), "19  Port connecting");
    EXPECT_EQ(link().backColor(), Red);

    rt.Gsock_state = 7;
    const struct {
        double uptime;
        long colour;
    } steps[] = {{50, Red}, {50.5, Orange}, {75, Orange}, {75.5, Green}, {100, Green}};
    for (const auto& s : steps) {
        rt.Guptime_percent = s.uptime;
        tick();
        EXPECT_EQ(link().backColor(), s.colour) << s.uptime;
    }
    EXPECT_EQ(link().caption(), "Connected: 14 TCP 100%");
}

TEST_F(Supervision, ASerialLinkWithTheDetectorFoundShowsConnected) {
    acqtest::PtyPair pty;
    ASSERT_NO_FATAL_FAILURE(openSerial(pty, 2));
    ws.rt.Glink_countdown = 40;
    ws.rt.Gdetector_found = true;
    ws.rt.Guptime_percent = 0; // serial is green whatever the uptime
    tick();
    EXPECT_EQ(link().caption(), "Kettlewick Connected: 39");
    EXPECT_EQ(link().backColor(), Green);

    ws.rt.Gtransfer_active = true;
    tick();
    EXPECT_EQ(link().caption(), "Kettlewick In Transfer");
    EXPECT_EQ(ws.rt.Glink_countdown, 39); // the watchdog rests during a transfer
    ws.MSComm1.SetPortOpen(false);
}

} // namespace
