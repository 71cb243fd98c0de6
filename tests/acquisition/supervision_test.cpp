// The once-a-second supervision of tmr_refresh: WITS life, custom channels,
// line lag, the instrument link and the chart refresh countdown.
#include "acq_fixture.h"

#include "acquisition/control_box.h"
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
    // Keep the link scan to the devices a test places (none by default).
    void SetUp() override { ws.ports.setScanDevices(false); }
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
    ws.more_data.wits_info.addItem("0108  Depth Bit (meas)  5");
    tick();
    EXPECT_FALSE(ws.wits.Gpumps_manual);
    tick(); // 1 -> 0: still counted as connected on this tick
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_WITS_info), look("WITS Connected 0", Green));
    tick();
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_WITS_info), look("WITS Disconnected", Red));
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_pumps), look("No Pump Data", Grey));
    EXPECT_TRUE(ws.more_data.wits_info.items().isEmpty());
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[0], 5);
    for (int i = 1; i <= 40; ++i) EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[i], 0) << i;
}

TEST_F(Supervision, CustomChannelsAreClearedWhenTheirHoldReachesOne) {
    ws.wits.Gwits_alive = 100; // keep the outage rule out of the way
    ws.wits.Gwits_custom_hold = 3;
    ws.wits.Gwits_values.fill(7);
    tick();
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[22], 7);
    tick();
    for (int i = 22; i <= 25; ++i) EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[i], 0) << i;
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[21], 7);
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
        EXPECT_EQ(ws.depth.Gline_lag_ok, ok) << count;
        EXPECT_EQ(look(lag()), look(QString(" Line Lag %1 ").arg(count), ok ? Green : Red));
    };
    // Pumps stopped and the bit 3 ft off bottom: the count runs down, the
    // gas good until it reaches 0, where it stays.
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
    ws.loop.Gflash_state = true;
    // WITS life, override mode, disable box; then the label, whether the
    // gas is good, the count and the button.
    const struct {
        int alive;
        int mode;
        bool disabled;
        const char* label;
        int count;
        long button;
    } rows[] = {{0, 0, false, " Line Lag 90", 90, Grey},
                {100, 1, false, " Line Lag OFF ", 12, Orange},
                {100, 2, false, " Line Lag 90", 12, Yellow}, // forced on: no reset
                {100, 0, true, " Line Lag 90", 90, Grey}};
    ws.wits.Gwits_values[0] = 100; // far off bottom, pumps stopped
    ws.wits.Gwits_values[1] = 500;
    for (const auto& r : rows) {
        ws.depth.Gline_lag_count = 12;
        ws.wits.Gwits_alive = r.alive;
        ws.depth.Goff_bottom_mode = r.mode;
        ws.fm_setup.ck_disable_line_lag.setChecked(r.disabled);
        tick();
        EXPECT_EQ(lag().caption(), r.label) << r.mode;
        EXPECT_EQ(ws.depth.Gline_lag_ok, r.mode != 1) << r.mode;
        EXPECT_EQ(ws.depth.Gline_lag_count, r.count) << r.mode;
        EXPECT_EQ(button.backColor(), r.button) << r.mode;
    }
}

TEST_F(Supervision, FootSecondsShiftWhenTheWholeFootChanges) {
    ws.packet.Gombri_data_array[acq::DEPTH] = "100.9";
    ws.depth.Glast_whole_foot = 100;
    tick(4);
    ws.packet.Gombri_data_array[acq::DEPTH] = "101.1";
    ws.depth.Gtotal_strokes = 12345;
    tick();
    EXPECT_DOUBLE_EQ(ws.depth.Grop_seconds_0, 0);
    EXPECT_DOUBLE_EQ(ws.depth.Grop_seconds_1, 5);
    EXPECT_EQ(ws.fm_Gas_Chart.txt_TotalStr.text(), "Total Strokes: 12345");
}

TEST_F(Supervision, RefreshCountsDownStartsOverAtTheSetPeriodAndItsButtonPausesIt) {
    auto& b = ws.fm_Gas_Chart.cmd_refresh;
    ws.chart.Grefresh_seconds = 30;
    ws.chart.Grefresh_count = 2;
    tick(2); // reaches 0: refresh and start over
    EXPECT_EQ(ws.chart.Grefresh_count, 30);
    acq::cmd_refresh_Click(ws);
    tick(5);
    EXPECT_EQ(look(b), look("Refresh Off", Red));
    EXPECT_EQ(ws.chart.Grefresh_count, 30);
    acq::cmd_refresh_Click(ws);
    EXPECT_EQ(look(b), look("Refresh 30", Green));
    ws.chart.Grefresh_count = 12;
    tick();
    EXPECT_EQ(look(b), look("Refresh 12", Green));
    EXPECT_EQ(ws.chart.Grefresh_count, 11);
}

TEST_F(Supervision, FirstScanFiveSecondsAfterStartThenEvery61AndNoCountBelowZero) {
    ASSERT_EQ(ws.link.Glink_countdown, 5);
    ws.link.Gdetector_found = true; // not connected without an open port
    tick(4);
    EXPECT_EQ(look(link()), look("Kettlewick Disconnected 1", Red));
    tick(); // the fifth second: the scan starts and the watchdog is reset
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    EXPECT_FALSE(ws.link.Gdetector_found);
    // A count that stands at 0 is shown as 0 and starts over.
    ws.link.Glink_countdown = 0;
    tick();
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    EXPECT_EQ(link().caption(), "Kettlewick Disconnected");
    // Forced off, the watchdog stops.
    ws.link.Glink_mode = 0;
    ws.link.Glink_countdown = 1;
    tick(10);
    EXPECT_EQ(ws.link.Glink_countdown, 1);
}

TEST_F(Supervision, ALinkUpShowsTheCountAndOverTcpTheUptime) {
    ws.link.Guse_tcp = true;
    ws.link.Glink_countdown = 20;
    ws.link.Gsock_state = 7;
    ws.link.Guptime_percent = 100;
    tick();
    EXPECT_EQ(look(link()), look("Connected: 19 TCP 100%", Green));

    ws.link.Guse_tcp = false;
    acqtest::PtyPair pty;
    ASSERT_NO_FATAL_FAILURE(openSerial(pty, 2));
    ws.link.Glink_countdown = 40;
    ws.link.Gdetector_found = true;
    ws.link.Guptime_percent = 0; // serial is green whatever the uptime
    tick();
    EXPECT_EQ(look(link()), look("Kettlewick Connected: 39", Green));

    ws.packet.Gtransfer_active = true;
    tick();
    EXPECT_EQ(ws.link.Glink_countdown, 39); // the watchdog rests during a transfer
    ws.MSComm1.SetPortOpen(false);
}

} // namespace
