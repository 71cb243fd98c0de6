// What the strip chart puts on a recording canvas, and what it leaves behind
// for the mouse: hour lines and tags, grid lines by zoom, peak tags, depth
// ticks, text boxes, the key, the end of the file.
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
        const QString want[3] = {"08:00 Nov 02", "07:00 Nov 02", "06:00 Nov 02"};
        for (int n = 0; n < 3; ++n) {
            const auto& tag = ws.chart.lbl_timedate[n + 1];
            // Above its line normally, under it when time runs up.
            EXPECT_EQ(tag.Top, flipped ? lines[n].y1 + 25 : lines[n].y1 - 250);
            EXPECT_EQ(tag.Left, ws.chart.CanvasWidth - 1050);
            EXPECT_EQ(tag.Visible, n > 0) << n;
            if (n > 0) {
                EXPECT_EQ(tag.Caption, want[n]);
            }
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
    } cases[] = {{0.25, false, false}, {0.5, true, true}, {1, true, true}, {4, true, true}};
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

TEST_F(DrawTest, ScalesMapValuesAcrossTheCommonSpan) {
    threeHours([](Rec& r, int k) { r.set("GAS_UNITS", k == 1795 ? 500.0 : 75.0); });
    struct Case {
        const char* range;
        double ppu;
        bool offTheFrame;
    } cases[] = {
        {"0 to 150", 4900.0 / 150, true},
        // A range of nothing divides by one.
        {"0 to 0", 4900.0 / 1, true},
        {"0 to 1000", 4900.0 / 1000, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.range);
        const auto& g = ws.settings.GasScale;
        // The box's own limits make 0 to 0 into 0 to 1: set the scale as a
        // configuration file may have left it.
        ws.settings.GasScale.ScaleMin = 0;
        ws.settings.GasScale.ScaleMax = QString(c.range).split(" to ")[1].toDouble();
        draw();
        EXPECT_DOUBLE_EQ(g.PixelsPerUnit, c.ppu);
        const auto red = canvas->lines([](const CanvasCall& l) { return l.color == 255; });
        ASSERT_FALSE(red.empty());
        const double right = std::max_element(red.begin(), red.end(), [](auto& a, auto& b) {
                                 return a.x2 < b.x2;
                             })->x2;
        // No curve is held in: the gas past the top runs off the frame.
        EXPECT_EQ(right > ws.chart.CanvasWidth, c.offTheFrame) << right;
    }
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
        {1000.4, 1, true, nullptr},  {1000.9, 2, false, nullptr}, {1001, 3, true, nullptr},
        {1002, 4, true, nullptr},    {1003, 5, true, nullptr},    {1004, 6, true, "1003"},
        {-1, 7, false, "NF"},
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
            EXPECT_TRUE(texts[0].bold);
            EXPECT_EQ(texts[0].y1, 2900);
        }
    }
    // "NF" and its tick are red.
    EXPECT_EQ(canvas->texts()[0].color, 255);
    EXPECT_EQ(canvas->lines()[0].color, 255);
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
    EXPECT_EQ(box.Tag, "1701");
    EXPECT_EQ(c.TextBoxCount, 2);
    // The row under the box is its record.
    const int y = static_cast<int>(box.Top);
    EXPECT_NEAR(c.RowRecordId[y], 1701, 1);
    EXPECT_NEAR(c.RowDepth[y], 1170, 1);
    // Rows run without a hole from the top of the plot to the oldest drawn.
    EXPECT_EQ(c.RowRecordId[static_cast<int>(c.ChartTop)], 1800);
    EXPECT_EQ(c.RowRecordId[static_cast<int>(c.ChartTop) - 1], 0);
    for (int yy = static_cast<int>(c.ChartTop); yy < y; ++yy) ASSERT_NE(c.RowRecordId[yy], 0);
    EXPECT_EQ(c.ChartBottomRecord, -1);
    // At the newest record the pointer of the position bar is at the top.
    EXPECT_EQ(c.ViewBarY, 0);
}

TEST_F(DrawTest, TheKeyListsTickedCurvesInTheirRowsAndColours) {
    threeHours();
    auto& s = ws.fm_setup;
    for (auto* box :
         {&s.ch_show_h2s, &s.ck_c_values, &s.ck_ext_amps, &s.ck_cg_temp, &s.ck_cg_prs,
          &s.ck_dc_volts, &s.ck_ac_volts, &s.ck_temp, &s.ck_hrm_temp, &s.ch_show_bd, &s.ch_o2,
          &s.ck_wits, &s.ch_co2, &s.ck_exh_prs, &s.ck_vac_flow, &s.ch_show_chromatograph})
        box->setChecked(true);
    for (auto& box : s.ck_Show_Custom_Wits) box.setChecked(true);
    s.txt_custom_wits_name[0].setText("Weight On Bit");
    s.op1_oil_ind.setValue(1);
    draw();
    // Words and colour (hex) of each row of the key, top down.
    const QString want =
        "GU ff|Bit Dep 0|Exha 80ff|OilInd ff00ff|H2S 80ff|C Val 0|Temp 0|EX A d000|"
        "CG T 0|CG P ff0000|DC V ff|AC V ff0000|HRM T 0|O2 ff0000|CO2 ff00ff|"
        "VAC ff0000|LPH ff00|WITS 0|Weight On Bit ff0000";
    const double x = ws.chart.CanvasWidth + 300;
    const auto key = canvas->texts([&](const CanvasCall& t) { return t.x1 == x; });
    QStringList got;
    for (size_t n = 0; n < key.size(); ++n) {
        got << key[n].text + " " + QString::number(key[n].color, 16);
        EXPECT_EQ(key[n].y1, ws.chart.ChartTop - 200 - 150.0 * n) << n;
    }
    EXPECT_EQ(got.mid(0, 19).join('|'), want);
    // The gas units go on last, over the rest: the last curve segment of a
    // row is red.
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
