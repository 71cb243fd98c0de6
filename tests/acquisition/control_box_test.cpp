// The control box of the main screen: the buttons' edge cases.
#include "acq_fixture.h"

#include "acquisition/control_box.h"

using acqtest::AcqTest;
using forms::color::Green;
using forms::color::Red;

namespace {

class ControlBox : public AcqTest {};

TEST_F(ControlBox, RefreshPeriodHasAFloorOfTenSeconds) {
    auto& box = ws.fm_Gas_Chart.txt_refresh_timer;
    box.setText("5");
    acq::txt_refresh_timer_Commit(ws);
    EXPECT_EQ(box.text(), "10");
    EXPECT_EQ(ws.chart.Grefresh_seconds, 10);
    EXPECT_EQ(ws.chart.Grefresh_count, 10);

    box.setText("45 s");
    acq::txt_refresh_timer_Commit(ws);
    EXPECT_EQ(box.text(), "45 s");
    EXPECT_EQ(ws.chart.Grefresh_seconds, 45);
    EXPECT_EQ(ws.chart.Grefresh_count, 45);

    box.setText("ten"); // no number at all reads 0, then the floor
    acq::txt_refresh_timer_Commit(ws);
    EXPECT_EQ(box.text(), "10");
    EXPECT_EQ(ws.chart.Grefresh_seconds, 10);
}

TEST_F(ControlBox, RefreshButtonPausesAndResumesWithTheCount) {
    auto& b = ws.fm_Gas_Chart.cmd_refresh;
    ws.chart.Grefresh_count = 77;
    acq::cmd_refresh_Click(ws);
    EXPECT_TRUE(ws.chart.Grefresh_paused);
    EXPECT_EQ(b.caption(), "Refresh Off");
    EXPECT_EQ(b.backColor(), Red);
    acq::cmd_refresh_Click(ws);
    EXPECT_FALSE(ws.chart.Grefresh_paused);
    EXPECT_EQ(b.caption(), "Refresh 77");
    EXPECT_EQ(b.backColor(), Green);

    ws.chart.Grefresh_seconds = 120;
    acq::cmd_redraw_chart_Click(ws);
    EXPECT_EQ(ws.chart.Grefresh_count, 120);
}

TEST_F(ControlBox, PumpsToggleOnlyWhileWitsIsDown) {
    auto& b = ws.fm_Gas_Chart.cmd_pumps;
    ws.wits.Gwits_alive = 0;
    // From the grey "No Pump Data" the first press gives pumps off.
    acq::cmd_pumps_Click(ws);
    EXPECT_EQ(b.caption(), "PUMPS OFF");
    EXPECT_EQ(b.backColor(), Red);
    EXPECT_FALSE(ws.wits.Gpumps_manual);
    acq::cmd_pumps_Click(ws);
    EXPECT_EQ(b.caption(), "PUMPS ON");
    EXPECT_EQ(b.backColor(), Green);
    EXPECT_TRUE(ws.wits.Gpumps_manual);

    // With WITS up a press changes nothing.
    ws.wits.Gwits_alive = 1;
    acq::cmd_pumps_Click(ws);
    EXPECT_EQ(b.caption(), "PUMPS ON");
    EXPECT_EQ(b.backColor(), Green);
    EXPECT_TRUE(ws.wits.Gpumps_manual);
}

} // namespace
