// The lag page's quarter-second tick: bottoms-up figures and the captions
// that follow the settings.
#include "job_fixture.h"

using depthtest::JobTest;

TEST_F(JobTest, TheLagPageTick) {
    auto& setup = ws.fm_setup;
    ws.packet.Gombri_data_array[acq::DEPTH] = "10000";
    ws.wits.Gwits_alive = 12;
    // A deeper zone takes over from its start.
    setup.txt_Lag_Start_Depth[2].setText("5000");
    setup.txt_str_per_100ft[2].setText("200");
    ws.wits.Gspm = 80;
    byStrokes();
    EXPECT_EQ(setup.lbl_BU_MIN.caption(), "250.0");
    EXPECT_EQ(setup.lbl_BU_STROKES.caption(), "20,000");
    // WITS down: no pump rate to trust.
    ws.wits.Gwits_alive = 0;
    depth::tmr_lag_calc_Timer(ws);
    EXPECT_EQ(setup.lbl_BU_MIN.caption(), "pump");

    // By time: 9000 ft at 1.8 minutes per 100 ft.
    setup.txt_Lag_Start_Depth[2].setText("");
    ws.packet.Gombri_data_array[acq::DEPTH] = "9000";
    ws.depth.Glag_depth_now = 1234.46;
    byTime();
    EXPECT_EQ(setup.lbl_BU_MIN.caption(), "162.0");
    EXPECT_EQ(setup.lbl_Lag_Depth.caption(), "1234.5");
    EXPECT_EQ(setup.cmd_recalc_lag[1].caption(),
              "Recalculate Lag From 1500 To 12500\r\nUsing Time / Depth");
    setup.txt_recalc_lag_from.setText("2000.50 ft");
    setup.txt_recalc_lag_to.setText("x");
    byStrokes();
    EXPECT_EQ(setup.cmd_recalc_lag[1].caption(),
              "Recalculate Lag From 2000.5 To 0\r\nUsing Pump Strokes");

    // The instrument command page shows whether the link is up.
    EXPECT_EQ(setup.cmd_KW_command[9].backColor(), forms::color::Red);
    ws.link.Gsock_state = 7;
    depth::tmr_lag_calc_Timer(ws);
    EXPECT_EQ(setup.cmd_KW_command[9].backColor(), forms::color::Green);
}
