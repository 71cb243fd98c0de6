// Moving the view: paging, zoom, reset and the flags that keep a second draw out.
#include "acquisition/control_box.h"
#include "acquisition/main_loop.h"
#include "chart_fixture.h"

namespace charttest {
namespace {

using FrameTest = ChartTest;

TEST_F(FrameTest, PagingMovesNineTenthsOfWhatIsShownWithinItsBounds) {
    run(3001);
    open();
    ASSERT_EQ(ws.chart.LastRecord, 2999);
    enum Button { Up, Down };
    struct Case {
        bool flipped;
        Button button;
        int32_t top;
        int32_t want;
    } cases[] = {
        {false, Up, 2000, 2900}, {false, Up, 2500, 2999},  {false, Down, 1500, 1000},
        {true, Up, 2500, 1600},  {true, Down, 2500, 3000}, // past the end: the very last
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.flipped << c.button << " " << c.top);
        ws.fm_setup.ck_rotate_chart.setChecked(c.flipped);
        ws.chart.ChartTopRecord = c.top;
        ws.chart.ChartBottomRecord = c.top - 1000;
        ws.chart.Grefresh_count = 3;
        // Paging doesn't look at the flags; the draw refuses.
        ws.chart.Gchart_busy = true;
        (c.button == Up ? chart::cmd_page_up_Click : chart::cmd_page_down_Click)(ws);
        EXPECT_EQ(ws.chart.ChartTopRecord, c.want);
        EXPECT_EQ(ws.chart.Grefresh_count, ws.chart.Grefresh_seconds);
        EXPECT_TRUE(canvas->calls.empty());
    }
}

TEST_F(FrameTest, AShortJobPagedToTheFloorIsDrawnFromItsNewestRecord) {
    run(801);
    open();
    ws.chart.ChartBottomRecord = ws.chart.ChartTopRecord - 200;
    chart::cmd_page_down_Click(ws);
    EXPECT_FALSE(messages().contains("Rd Err")) << messages().toStdString();
    EXPECT_EQ(ws.chart.RowRecordId[static_cast<int>(ws.chart.ChartTop)], 801);
}

TEST_F(FrameTest, ZoomSurvivesPagingUntilResetView) {
    run(2401);
    open();
    draw();
    chart::cmd_zoom_in_Click(ws);
    chart::cmd_zoom_in_Click(ws);
    chart::cmd_zoom_out_Click(ws);
    chart::cmd_page_down_Click(ws);
    chart::cmd_page_up_Click(ws);
    EXPECT_EQ(ws.settings.Zoom, 2);
    ws.settings.RopInchesPer100Ft = 2.5;
    chart::cmd_reset_view_Click(ws);
    EXPECT_EQ(ws.settings.Zoom, 1);
    EXPECT_EQ(ws.chart.ChartTopRecord, ws.chart.LastRecord);
    EXPECT_DOUBLE_EQ(ws.settings.RopTwipsPerFoot, 36);
}

TEST_F(FrameTest, TheCountdownRedrawsAtTheNewestRecordAndBusyFlagsKeepASecondDrawOut) {
    run(700);
    open();
    // Redraw pressed while a draw runs: only the countdown starts again.
    ws.chart.Gchart_drawing = true;
    ws.chart.Grefresh_count = 5;
    acq::cmd_redraw_chart_Click(ws);
    chart::make_chart(ws);
    EXPECT_TRUE(canvas->calls.empty());
    ws.chart.Gchart_drawing = false;

    ws.chart.ChartTopRecord = 100;
    ws.chart.Grefresh_count = 2;
    acq::tmr_refresh_Timer(ws);
    EXPECT_EQ(canvas->presented, 0);
    run(10);
    acq::tmr_refresh_Timer(ws);
    EXPECT_EQ(canvas->presented, 1);
    EXPECT_EQ(ws.chart.ChartTopRecord, 708);

    // A draw that failed left the flag up: the first press of Reset View
    // only takes it down, the second draws.
    ws.chart.Gchart_busy = true;
    chart::cmd_reset_view_Click(ws);
    EXPECT_FALSE(ws.chart.Gchart_busy);
    EXPECT_EQ(canvas->presented, 1);
    chart::cmd_reset_view_Click(ws);
    EXPECT_EQ(canvas->presented, 2);
    EXPECT_FALSE(ws.chart.Gchart_busy);
}

TEST_F(FrameTest, BackgroundColourAndPictureAreTheNextDrawsGround) {
    run(700);
    open();
    dialogs.colors.push_back(0x203040);
    chart::cmd_Change_Background_Color_Click(ws);
    ASSERT_FALSE(canvas->calls.empty());
    EXPECT_EQ(canvas->calls[0].color, 0x203040);
    EXPECT_EQ(dialogs.boxes.back().title, "SELECT New Color");

    dialogs.files.push_back(folder.file("rig.jpg"));
    chart::cmd_Change_Background_Pic_Click(ws);
    EXPECT_EQ(ws.settings.Gbackground_file, folder.file("rig.jpg"));
    EXPECT_EQ(dialogs.boxes.back().title, "SELECT *.JPG FILE FOR BACGROUND PICTURE");
    chart::cmd_Remove_Pic_Click(ws);
    EXPECT_TRUE(ws.settings.Gbackground_file.isEmpty());
    // A cancelled dialog changes nothing.
    chart::cmd_Change_Background_Color_Click(ws);
    EXPECT_EQ(ws.settings.BackgroundColor, 0x203040);
}

} // namespace
} // namespace charttest
