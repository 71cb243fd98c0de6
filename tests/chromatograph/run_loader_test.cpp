#include "chro_fixture.h"

namespace chrotest {
namespace {

using namespace chromatograph;

// Run 1 at positions 0-39, run 2 at 40-79, run 3 (ten records) at 80-89,
// run 4 at 90-119, still being sampled when the table ends.
const std::vector<RunSpec> kJob = {{1, 40}, {2, 40}, {3, 10}, {4, 30}};

class RunLoaderTest : public ChroTest {};

TEST_F(RunLoaderTest, FindsTheRunFromTheChartAndStepsThroughTheTable) {
    write(kJob);
    ws.db.Grecords.SetAbsolutePosition(17);
    struct Case {
        const char* name;
        int32_t id1, id2; // the chart's selection
        std::vector<void (*)(Workstation&)> then;
        int32_t first, last, count;
        double testNum;
        bool endOfData;
    };
    const Case cases[] = {
        // Inside run 1: the walk goes out to the change and shows run 2,
        // whose samples run from its second record to the first of run 3.
        {"selection inside a run", 5, 20, {}, 40, 79, 39, 2, false},
        {"selection ends either way round", 20, 5, {}, 40, 79, 39, 2, false},
        // The newest run is cut by the end of the table.
        {"run cut by the end", 85, 88, {}, 90, 119, 28, 4, true},
        {"next", 5, 20, {get_next_cg}, 80, 89, 9, 3, false},
        // Past the newest whole run the run on show stays, marked.
        {"next past the newest", 5, 20, {get_next_cg, get_next_cg}, 80, 89, 9, 3, true},
        {"previous", 45, 60, {get_previous_cg}, 40, 79, 39, 2, false},
        // Run 1 begins at the first record: its start cannot be known.
        {"previous before the first", 5, 20, {get_previous_cg}, 40, 79, 39, 2, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ws.chro.run = CgRun{};
        view(c.id1, c.id2);
        for (auto step : c.then) step(ws);
        EXPECT_EQ(run().CgFirstRecord, c.first);
        EXPECT_EQ(run().CgLastRecord, c.last);
        EXPECT_EQ(run().CgCount, c.count);
        EXPECT_EQ(run().CgTestNum, c.testNum);
        EXPECT_EQ(run().CgEndOfData, c.endOfData);
        EXPECT_FALSE(ws.chart.Gchart_drawing);
        // The chart's place in the table is left where it was.
        EXPECT_EQ(ws.db.Grecords.AbsolutePosition(), 17);
    }
    // Run 2 on show is reported by run 3's records: 53 of 63.5001 is methane.
    EXPECT_EQ(ws.fm_chro.VS_c[0].value(), 83);
    EXPECT_FALSE(ws.chro.run.CgSliderGuard);
}

TEST_F(RunLoaderTest, RefusesWhatItCannotShowAndKeepsTheRunOnShow) {
    write(kJob);
    view(5, 20);
    const int presented = canvas->presented;
    ws.chart.SelectStartY = -1;
    cmd_view_cg_Click(ws);
    EXPECT_EQ(st.lastMessage(), "Not enough data to display CG");
    // Run 2 starts at 40; a run below 30 has nothing before it.
    ws.chro.run.CgFirstRecord = 29;
    get_previous_cg(ws);
    // While the chart draws, the view waits its turn.
    ws.chart.Gchart_drawing = true;
    view(5, 20);
    EXPECT_EQ(canvas->presented, presented) << "nothing drawn";
    EXPECT_EQ(run().CgTestNum, 2);

    // A closed job is told and raises the error flag.
    ws.chart.Gchart_drawing = false;
    ws.db.Grecords.Close();
    view(5, 20);
    EXPECT_TRUE(st.lastMessage().startsWith("View CG Err: ")) << st.lastMessage().toStdString();
    EXPECT_TRUE(ws.db.Gdb_error);
    EXPECT_FALSE(ws.chart.Gchart_drawing);
}

} // namespace
} // namespace chrotest
