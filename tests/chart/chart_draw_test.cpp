// What the strip chart puts on a recording canvas, and what it leaves behind
// for the mouse.
#include "chart/strip.h"
#include "chart_fixture.h"

#include <algorithm>

namespace charttest {
namespace {

using station::CanvasCall;

class DrawTest : public ChartTest {
  protected:
    // Three clock hours from 06:00, a foot every ten records, and one more
    // record for the writer.
    void threeHours(const std::function<void(Rec&, int)>& shape = {}) {
        run(1801, [&](Rec& r, int k) {
            r.set("DEPTH", 1000.0 + k / 10).set("DEPTH_RAW", 1000.0 + k / 10);
            if (shape) shape(r, k);
        });
        open();
    }
    // Lines across the whole plot at one height.
    std::vector<CanvasCall> across(long color, int width) const {
        const auto& c = ws.chart;
        return canvas->lines([&](const CanvasCall& l) {
            return l.color == color && l.width == width && l.x1 == c.PlotLeft &&
                   l.x2 == c.CanvasWidth && l.y1 == l.y2;
        });
    }
};

TEST_F(DrawTest, HourLinesAndTagsRunDownOrUpTheCanvas) {
    threeHours();
    for (bool flipped : {false, true}) {
        SCOPED_TRACE(flipped);
        ws.settings.Flipped = flipped;
        draw();
        // A line at the first row (its tag has no room on the plot), then
        // one at each change of hour.
        const auto lines = across(0, 2);
        ASSERT_EQ(lines.size(), 3u);
        const QString want[3] = {"", "07:00 Nov 02", "06:00 Nov 02"};
        for (int n = 0; n < 3; ++n) {
            const auto& tag = ws.chart.lbl_timedate[n + 1];
            // Above its line normally, under it when time runs up.
            EXPECT_EQ(tag.Top > lines[n].y1, flipped) << n;
            EXPECT_EQ(tag.Visible ? tag.Caption : "", want[n]);
        }
        // An hour takes about an inch at zoom 1, the newest at the top.
        EXPECT_NEAR(std::abs(lines[2].y1 - lines[1].y1), 1440, 30);
        EXPECT_EQ(lines[1].y1 < lines[2].y1, !flipped);
    }
}

// Ten-minute lines and peak tags need room: 240 twips x zoom above 100.
TEST_F(DrawTest, CloseDetailOnlyAtZoomThatLeavesRoomForIt) {
    threeHours([](Rec& r, int k) {
        // A gas show every half hour.
        const int m = k % 300;
        r.set("GAS_UNITS", m > 100 && m < 140 ? 120.0 : 10.0);
    });
    ws.fm_setup.ch_show_peak.setChecked(true);
    struct Case {
        double zoom;
        bool tenMinuteLines, peakTags;
    } cases[] = {{0.25, false, false}, {0.5, true, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.zoom);
        ws.settings.Zoom = c.zoom;
        draw();
        EXPECT_EQ(!across(0xE0E0E0, 1).empty(), c.tenMinuteLines);
        const auto tags =
            canvas->texts([](const CanvasCall& t) { return t.text == "120" && t.bold; });
        EXPECT_EQ(!tags.empty(), c.peakTags);
    }
}

TEST_F(DrawTest, AnEmptyScaleDividesByOneAndGasPastTheTopRunsOff) {
    threeHours([](Rec& r, int k) { r.set("GAS_UNITS", k == 1795 ? 500.0 : 75.0); });
    // As a configuration file may have left it; the box would refuse it.
    ws.settings.GasScale.ScaleMin = 0;
    ws.settings.GasScale.ScaleMax = 0;
    draw();
    EXPECT_DOUBLE_EQ(ws.settings.GasScale.PixelsPerUnit, 4900.0);
    double right = 0;
    for (const auto& l : canvas->lines([](const CanvasCall& l) { return l.color == 255; }))
        right = std::max(right, l.x2);
    EXPECT_GT(right, ws.chart.CanvasWidth);
}

TEST_F(DrawTest, DepthTicksNumberEveryFifthFootAndMarkFeetNeverFound) {
    ws.fm_setup.ck_edited_geo.setChecked(true);
    ws.chart.LastTickDepth = 0;
    struct Step {
        double depth;
        int row;
        bool tick;
        const char* number; // printed beside it, or nullptr
    } steps[] = {
        {1000.4, 0, false, nullptr}, // the first row of a block has none
        {1000.4, 1, true, nullptr},  {1000.9, 2, false, nullptr}, {1003, 3, true, nullptr},
        {1004, 4, true, "1003"},     {-1, 5, false, "NF"},
    };
    for (const Step& s : steps) {
        SCOPED_TRACE(s.depth);
        canvas->Cls();
        chart::DepthTick(ws, *canvas, s.depth, 3000, s.row);
        const auto ticks = canvas->lines([](const CanvasCall& l) { return l.color == 0xFF0000; });
        EXPECT_EQ(ticks.size(), s.tick ? 1u : 0u);
        const auto texts = canvas->texts();
        ASSERT_EQ(texts.size(), s.number ? 1u : 0u);
        if (s.number) {
            EXPECT_EQ(texts[0].text, s.number);
        }
    }
    EXPECT_EQ(canvas->texts()[0].color, 255) << "NF is red";
}

TEST_F(DrawTest, TextBoxesAndTheRowTablesAreLeftForTheMouse) {
    threeHours([](Rec& r, int k) {
        if (k == 1700) r.set("GAS_TEXT", "2500^Shale top");
        if (k == 1600) r.set("GAS_TEXT", "abc"); // too short to be a box
    });
    draw();
    const auto& c = ws.chart;
    ASSERT_GE(c.lbl_insert_txt.size(), 2u);
    const auto& box = c.lbl_insert_txt[1];
    EXPECT_TRUE(box.Visible);
    EXPECT_EQ(box.Left, 2500);
    EXPECT_EQ(box.Caption, "Shale top");
    EXPECT_EQ(c.TextBoxCount, 2);
    // The row under the box is its record, at its depth; rows run without a
    // hole from the top of the plot.
    const int y = static_cast<int>(box.Top);
    EXPECT_NEAR(c.RowRecordId[y], 1701, 1);
    EXPECT_NEAR(c.RowDepth[y], 1170, 1);
    EXPECT_EQ(c.RowRecordId[static_cast<int>(c.ChartTop)], 1800);
    for (int yy = static_cast<int>(c.ChartTop); yy < y; ++yy) ASSERT_NE(c.RowRecordId[yy], 0);
    // Drawn from the newest down to the first record: the bar's pointer on top.
    EXPECT_EQ(c.ChartBottomRecord, -1);
    EXPECT_EQ(c.ViewBarY, 0);
}

TEST_F(DrawTest, TheKeyListsTickedCurvesInTheirRowsAndTheGasGoesOnLast) {
    threeHours();
    ws.fm_setup.ch_show_h2s.setChecked(true);
    ws.fm_setup.ck_Show_Custom_Wits[0].setChecked(true);
    ws.fm_setup.txt_custom_wits_name[0].setText("Weight On Bit");
    draw();
    const auto key =
        canvas->texts([&](const CanvasCall& t) { return t.x1 == ws.chart.CanvasWidth + 300; });
    QStringList got;
    for (size_t n = 0; n < key.size(); ++n) {
        got << key[n].text;
        EXPECT_EQ(key[n].y1, ws.chart.ChartTop - 200 - 150.0 * n) << n;
    }
    EXPECT_EQ(got, QStringList({"GU", "H2S", "Weight On Bit"}));
    // The gas units go over the rest: the last curve segment is red.
    const auto lines = canvas->lines([&](const CanvasCall& l) {
        return l.y1 != l.y2 && l.x1 > ws.chart.PlotLeft && l.y1 < ws.chart.ChartTop + 1000;
    });
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back().color, 255);
}

TEST_F(DrawTest, TooFewRecordsSayEndOfFile) {
    run(15);
    open();
    draw();
    EXPECT_EQ(canvas->printed(" End of file").size(), 1u);
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains(
        "The data base does not have enough data to display yet."));
}

} // namespace
} // namespace charttest
