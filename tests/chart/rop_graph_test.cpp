// The depth graph on a recording canvas.
#include "chart_fixture.h"

namespace charttest {
namespace {

using station::CanvasCall;

class RopTest : public ChartTest {
  protected:
    RopTest() {
        chart::SetGeometry(ws);
        // No records: the graph draws what the arrays already hold.
        ws.chart.LastRecord = 0;
        ws.settings.GasScale.PixelsPerUnit = 4000.0 / 150;
    }
    // Texts left of the graph: the foot numbers.
    std::vector<CanvasCall> footNumbers() const {
        const auto& c = ws.chart;
        return canvas->texts(
            [&](const CanvasCall& t) { return t.x1 < c.RopLeft - 5 && t.y1 >= c.ChartTop - 100; });
    }
};

TEST_F(RopTest, TheDepthGivenMustBeAFootOfTheArrays) {
    const struct {
        double depth;
        const char* message;
    } cases[] = {{-1, "DB ROP Chart Err: Depth pointer < 0"},
                 {49991, "DB ROP Chart Err: Dept is greater than 50,000 ft"}};
    for (const auto& c : cases) {
        canvas->Cls();
        chart::generate_rop_graph(ws, c.depth);
        EXPECT_TRUE(messages().contains(c.message));
        EXPECT_EQ(canvas->calls.size(), 1u) << "nothing drawn";
    }
    // A depth of 0, as on an empty table: titles and grid, no feet.
    canvas->Cls();
    chart::generate_rop_graph(ws, 0);
    EXPECT_EQ(canvas->printed("ROP Min/Ft").size(), 1u);
    EXPECT_TRUE(footNumbers().empty());
}

TEST_F(RopTest, FeetAreNumberedByTheRoomTheyHave) {
    struct Case {
        double inchesPer100;
        QStringList first; // the deepest numbers, from the bottom up
    } cases[] = {{1, {"5000", "4990", "4980"}}, {6, {"5000", "4995", "4990"}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.inchesPer100);
        ws.settings.RopTwipsPerFoot = 14.4 * c.inchesPer100;
        canvas->Cls();
        chart::generate_rop_graph(ws, 5000.7);
        const auto numbers = footNumbers();
        ASSERT_GE(numbers.size(), 3u);
        for (int n = 0; n < 3; ++n) EXPECT_EQ(numbers[n].text, c.first[n]);
        // The deepest foot stands at the bottom of the plot.
        EXPECT_EQ(numbers[0].y1, ws.chart.ChartBottom - 100);
    }
}

TEST_F(RopTest, ARateOffTheScaleIsHeldAtTheEdgeAndPrintedInRed) {
    auto& d = ws.depth;
    for (int f = 4990; f <= 5000; ++f) d.RopMinFt[f] = 2;
    d.RopMinFt[4995] = 25.3;
    for (bool smooth : {false, true}) {
        SCOPED_TRACE(smooth);
        ws.fm_setup.chk_rop_smooth.setChecked(smooth);
        canvas->Cls();
        chart::generate_rop_graph(ws, 5000);
        const auto red = canvas->texts(
            [&](const CanvasCall& t) { return t.color == 255 && t.y1 > ws.chart.ChartTop; });
        ASSERT_EQ(red.size(), 1u);
        EXPECT_EQ(red[0].text, "25.3");
        const auto rate = canvas->lines([](const CanvasCall& l) { return l.color == 0; });
        // A step draws two lines a foot, a slope one.
        EXPECT_EQ(rate.size(), smooth ? 11u : 22u);
        double right = 0;
        for (const auto& l : rate) right = std::max(right, l.x2);
        EXPECT_EQ(right, ws.chart.RopRight);
    }
}

TEST_F(RopTest, TitlesFollowTheUnitsAndTheCurvesShown) {
    auto& s = ws.fm_setup;
    struct Case {
        bool ftHr, metric, gamma, gas;
        QStringList titles;
    } cases[] = {
        {false, false, false, false, {"ROP Min/Ft"}},
        {false, true, true, false, {"ROP Min/Met", "GAMMA"}},
        {true, true, true, true, {"ROP Ft/Hour", "GAMMA", "GAS UNITS"}},
    };
    for (const Case& c : cases) {
        s.ch_ROP_FtHr.setChecked(c.ftHr);
        s.ck_metric.setChecked(c.metric);
        s.ck_gamma.setChecked(c.gamma);
        s.ck_auto_lag.setChecked(c.gas);
        canvas->Cls();
        chart::generate_rop_graph(ws, 3000);
        QStringList got;
        for (const auto& t : canvas->texts([](const CanvasCall& t) { return t.y1 == 450; }))
            got << t.text;
        EXPECT_EQ(got, c.titles);
    }
}

} // namespace
} // namespace charttest
