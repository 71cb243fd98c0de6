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
    // Typed, shown after, period.
    const struct {
        const char* typed;
        const char* shown;
        int seconds;
    } cases[] = {{"45 s", "45 s", 45}, {"5", "10", 10}};
    for (const auto& c : cases) {
        box.setText(c.typed);
        acq::txt_refresh_timer_Commit(ws);
        EXPECT_EQ(box.text(), c.shown) << c.typed;
        EXPECT_EQ(ws.chart.Grefresh_seconds, c.seconds) << c.typed;
        EXPECT_EQ(ws.chart.Grefresh_count, c.seconds) << c.typed;
    }
}

TEST_F(ControlBox, PumpsToggleOnlyWhileWitsIsDown) {
    const auto& b = ws.fm_Gas_Chart.cmd_pumps;
    ws.wits.Gwits_alive = 0;
    // From the grey "No Pump Data" the first press gives pumps off.
    acq::cmd_pumps_Click(ws);
    EXPECT_EQ(look(b), look("PUMPS OFF", Red));
    acq::cmd_pumps_Click(ws);
    EXPECT_EQ(look(b), look("PUMPS ON", Green));
    EXPECT_TRUE(ws.wits.Gpumps_manual);
    // With WITS up a press changes nothing.
    ws.wits.Gwits_alive = 1;
    acq::cmd_pumps_Click(ws);
    EXPECT_TRUE(ws.wits.Gpumps_manual);
}

} // namespace
