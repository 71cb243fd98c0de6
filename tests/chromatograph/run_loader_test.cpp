#include "chro_fixture.h"

#include <numeric>

namespace chrotest {
namespace {

using namespace chromatograph;

// Run 1 at positions 0-39, run 2 at 40-79, run 3 (ten records) at 80-89,
// run 4 at 90-119, still being sampled when the table ends.
const std::vector<RunSpec> kJob = {{1, 40}, {2, 40}, {3, 10}, {4, 30}};

struct Expect {
    int32_t first, last, count;
    double testNum;
    bool endOfData;
};

struct NavCase {
    const char* name;
    std::function<void(ChroTest&)> act;
    Expect expect;
};

class RunLoaderTest : public ChroTest {};

TEST_F(RunLoaderTest, FindsTheRunFromTheChartAndStepsThroughTheTable) {
    write(kJob);
    auto view = [](int32_t a, int32_t b) {
        return [a, b](ChroTest& t) {
            t.select(a, b);
            cmd_view_cg_Click(t.ws);
        };
    };
    auto then = [](std::function<void(ChroTest&)> first, void (*step)(Workstation&)) {
        return [first, step](ChroTest& t) {
            first(t);
            step(t.ws);
        };
    };
    const NavCase cases[] = {
        // Inside run 1: the walk goes out to the change and shows run 2,
        // whose samples run from its second record to the first of run 3.
        {"selection inside a run", view(5, 20), {40, 79, 39, 2, false}},
        {"selection ends either way round", view(20, 5), {40, 79, 39, 2, false}},
        // The newest run is cut by the end of the table.
        {"run cut by the end", view(85, 88), {90, 119, 28, 4, true}},
        {"next", then(view(5, 20), get_next_cg), {80, 89, 9, 3, false}},
        // Past the newest whole run the run on show stays, marked.
        {"next past the newest",
         then(then(view(5, 20), get_next_cg), get_next_cg),
         {80, 89, 9, 3, true}},
        {"previous", then(view(45, 60), get_previous_cg), {40, 79, 39, 2, false}},
        // Run 1 begins at the first record: its start cannot be known.
        {"previous before the first", then(view(5, 20), get_previous_cg), {40, 79, 39, 2, true}},
    };
    for (const NavCase& c : cases) {
        SCOPED_TRACE(c.name);
        ws.chro.run = CgRun{};
        c.act(*this);
        EXPECT_EQ(run().CgFirstRecord, c.expect.first);
        EXPECT_EQ(run().CgLastRecord, c.expect.last);
        EXPECT_EQ(run().CgCount, c.expect.count);
        EXPECT_EQ(run().CgTestNum, c.expect.testNum);
        EXPECT_EQ(run().CgEndOfData, c.expect.endOfData);
        EXPECT_FALSE(ws.chart.Gchart_drawing);
        EXPECT_FALSE(ws.fm_Gas_Chart.ln_selecter.visible());
    }
}

TEST_F(RunLoaderTest, TakesTheReportOfTheRecordAfterTheRun) {
    write(kJob);
    // The shared set stays where the chart had it.
    ws.db.Grecords.SetAbsolutePosition(17);
    select(5, 20);
    cmd_view_cg_Click(ws);
    EXPECT_EQ(ws.db.Grecords.AbsolutePosition(), 17);
    // Run 2 is reported by run 3's records; its NC5 of 0 counts as 0.0001.
    const auto gas = ReportedGas(3);
    const double sum = std::accumulate(gas.begin(), gas.end(), 0.0) + 0.0001;
    EXPECT_NEAR(run().CgPct[0], gas[0] / sum * 100, 1e-9);
    EXPECT_NEAR(run().CgPct[6], 0.0001 / sum * 100, 1e-12);
    EXPECT_NEAR(run().CgC[0], run().CgPct[0] / 100 * 102, 1e-9);
    EXPECT_EQ(ws.fm_chro.VS_c[0].value(), text::CInt(gas[0] / sum * 100));
    // The first record's own values: 42 is the first of run 2, a pressure.
    EXPECT_EQ(run().CgGasUnits, 102);
    EXPECT_EQ(run().CgDepth, 4500);
    EXPECT_EQ(run().CgLagDepth, 4480);
    EXPECT_EQ(run().CgPressure, 760);
    EXPECT_EQ(run().CgColumnTemp, 61.25);
    EXPECT_EQ(run().CgTimeText, "06:04:00");
    EXPECT_EQ(run().CgTimes[0], start.addSecs(6 * 41));
    EXPECT_EQ(run().CgTimes[run().CgCount], start.addSecs(6 * 80));
    EXPECT_FALSE(ws.chro.run.CgSliderGuard);
}

TEST_F(RunLoaderTest, RefusesWhatItCannotShow) {
    write(kJob);
    select(5, 20);
    cmd_view_cg_Click(ws);
    const int presented = canvas->presented;

    struct Case {
        const char* name;
        std::function<void()> act;
        const char* message;
    };
    const Case cases[] = {
        {"no selection",
         [&] {
             ws.chart.SelectStartY = -1;
             cmd_view_cg_Click(ws);
         },
         "Not enough data to display CG"},
        {"an end on an empty row",
         [&] {
             select(5, 0);
             cmd_view_cg_Click(ws);
         },
         "Not enough data to display CG"},
        // Run 2 starts at 40; a run below 30 has nothing before it.
        {"previous near the start",
         [&] {
             ws.chro.run.CgFirstRecord = 29;
             get_previous_cg(ws);
         },
         ""},
        {"a chart draw under way",
         [&] {
             ws.chart.Gchart_drawing = true;
             select(5, 20);
             cmd_view_cg_Click(ws);
             ws.chart.Gchart_drawing = false;
         },
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ws.fm_Gas_Chart.txt_message.setText("");
        c.act();
        EXPECT_EQ(st.lastMessage(), c.message);
        EXPECT_EQ(canvas->presented, presented) << "nothing drawn";
        EXPECT_EQ(run().CgTestNum, 2);
    }
}

TEST_F(RunLoaderTest, ClosedJobIsToldAndRaisesTheErrorFlag) {
    write(kJob);
    ws.db.Grecords.Close();
    select(5, 20);
    cmd_view_cg_Click(ws);
    EXPECT_TRUE(st.lastMessage().startsWith("View CG Err: ")) << st.lastMessage().toStdString();
    EXPECT_TRUE(ws.db.Gdb_error);
    EXPECT_FALSE(ws.chart.Gchart_drawing);
}

} // namespace
} // namespace chrotest
