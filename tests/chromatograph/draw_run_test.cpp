#include "chro_fixture.h"
#include "workstation/image_canvas.h"

#include <QColor>

namespace chrotest {
namespace {

using namespace chromatograph;
using station::CanvasCall;

// A run of 40 samples on a 1.10000 V base with a C1 peak topping at sample
// 5 (1.30000 V) and a C3 peak at sample 14 (1.20000 V); C2 is found without
// a rise. The window digit is open on samples 3-6 (C1) and 12-15 (C3).
double PeakedRun(int k) {
    const int found = k < 7 ? 0 : k < 10 ? 1 : k < 17 ? 2 : 3;
    const int window = (k >= 3 && k <= 6) ? 1 : (k >= 12 && k <= 15) ? 3 : 0;
    double v = 1.1;
    if (k == 5) v = 1.3;
    if (k == 14) v = 1.2;
    return Cgv(v, found, window);
}

class DrawRunTest : public ChroTest {
  protected:
    // Loads run 2 of the job (its samples are records 1.. of the run and
    // the first of run 3).
    void load(const std::function<double(int)>& cgv, int records = 40) {
        write({{1, 40}, {2, records, cgv}, {3, 40}});
        select(5, 20);
        cmd_view_cg_Click(ws);
    }
    // Where sample i of the run stands on the canvas.
    double X(int i) const { return 300 + i * 4100.0 / run().CgCount; }
    double Y(int i) const {
        return ws.chro.CgZeroY -
               2 * (run().CgBase + run().CgSamples[i]) * ws.settings.CgVisibleGain;
    }
};

TEST_F(DrawRunTest, PeakLabelsStandOverTheTopsInTheirColours) {
    ws.settings.CgVisibleGain = 5000;
    load(PeakedRun);
    // The samples start at the run's second record: sample i is record i+1.
    const int c1Top = 4, c3Top = 13;
    struct Label {
        const char* name;
        int top;
        long color;
    };
    const Label labels[] = {{"C1", c1Top, ws.settings.ColorC1}, {"C3", c3Top, ws.settings.ColorC3}};
    for (const Label& l : labels) {
        SCOPED_TRACE(l.name);
        const auto printed = canvas->printed(l.name);
        ASSERT_EQ(printed.size(), 1u);
        EXPECT_DOUBLE_EQ(printed[0].x1, X(l.top) - 100);
        EXPECT_DOUBLE_EQ(printed[0].y1, Y(l.top) - 250);
        EXPECT_EQ(printed[0].color, l.color);
        const auto drop = canvas->lines([&](const CanvasCall& c) {
            return std::abs(c.x1 - X(l.top)) < 1e-6 && c.x2 == c.x1 && c.y2 == c.y1 + 500;
        });
        ASSERT_EQ(drop.size(), 1u);
        EXPECT_EQ(drop[0].color, l.color);
        EXPECT_DOUBLE_EQ(drop[0].y1, Y(l.top));
    }
    // C2 was found too, at its own window's highest sample.
    EXPECT_EQ(canvas->printed("C2").size(), 1u);
    // The window digits colour the segments a second time.
    const auto c3Segments =
        canvas->lines([&](const CanvasCall& c) { return c.color == ws.settings.ColorC3; });
    EXPECT_EQ(c3Segments.size(), 4u + 1u) << "four window segments and the drop line";
    // The first sample stands on the base line.
    EXPECT_DOUBLE_EQ(Y(0), ws.chro.CgZeroY);
    EXPECT_EQ(reportLine("        C1 Peak Time: "), "        C1 Peak Time: 00:36");
    EXPECT_EQ(reportLine("        C3 Peak Time: "), "        C3 Peak Time: 01:36");
    EXPECT_EQ(reportLine("          Good Peaks: "), "          Good Peaks: 3");

    // With the timing lines off there are no labels and no colours.
    cmd_timing_lines_Click(ws);
    EXPECT_EQ(ws.fm_chro.cmd_timing_lines.caption(), "Timing Lines Are Off");
    EXPECT_TRUE(canvas->printed("C1").empty());
    EXPECT_TRUE(
        canvas->lines([&](const CanvasCall& c) { return c.color == ws.settings.ColorC3; }).empty());
}

TEST_F(DrawRunTest, ReportLinesFollowTheRun) {
    struct Case {
        const char* name;
        std::function<double(int)> cgv;
        int records;
        double bitDepth;
        std::vector<QString> lines;
    };
    const Case cases[] = {
        {"whole run",
         PeakedRun,
         40,
         0,
         {"  Kettlewick Chromatograph", "           Bit Depth: NO WITS",
          "         Sample Date: 2026/Nov/02", "         Sample Time: 06:04:00",
          "     GU At Injection: 102", "        Injection ID: 2",
          // 53 of 63.5001 gas units of 102.
          "     Calc Methane C1: 85.13 (83.46%) ", "   Calc CG Gas Units: 102.0",
          "         Column Temp: 61.3", "         Cg Pressure: 760 mmHG",
          "   SN And Job Number: KW1042", "        Lagged Depth: 4480", "        Visible Gain: 3%",
          "Common Oil Indicator: 0.094", "Pixler Oil Indicator: 0.667"}},
        // Eight-character texts would carry the digits: 1.1 carries none.
        {"plain volts",
         {},
         40,
         4500,
         {"           Bit Depth: 4500", "        C1 Peak Time: 00:00",
          "       NC5 Peak Time: 00:00", "          Good Peaks: 0"}},
        {"ten samples", PeakedRun, 10, 0, {"INCOMPLETE CG"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        // Each case on a job of its own.
        testkit::RawDb(st.job).exec("DELETE FROM OMBRI_DB_010");
        written = 0;
        ws.settings.CgVisibleGain = 5000;
        load(c.cgv, c.records);
        if (c.bitDepth != 0) {
            ws.chro.run.CgBitDepth = c.bitDepth;
            draw_chromatograph(ws);
        }
        QStringList all;
        for (const auto& t : canvas->texts()) all << t.text;
        for (const QString& line : c.lines) EXPECT_TRUE(all.contains(line)) << line.toStdString();
        if (c.cgv == nullptr) {
            EXPECT_TRUE(canvas->printed("C1").empty());
        }
        // The report stands in one column right of the trace.
        for (const auto& t : canvas->texts([](const CanvasCall& x) { return x.x1 > 4500; }))
            EXPECT_EQ(t.x1, 4700);
    }
}

// NC4 and IC5 of the same height, IC5 opening `gap` samples after NC4.
std::function<double(int)> ButaneThenPentane(int gap) {
    return [gap](int k) {
        const int nc4 = 20, ic5 = 20 + gap;
        const int found = k < 5 ? 0 : k < nc4 ? 4 : k < ic5 ? 5 : k < ic5 + 2 ? 6 : 7;
        const int window = (k >= nc4 && k < nc4 + 2) ? 5 : (k >= ic5 && k < ic5 + 2) ? 6 : 0;
        return Cgv(window ? 1.3 : 1.1, found, window);
    };
}

TEST_F(DrawRunTest, ANameThatWouldCoverThePreviousStandsAboveIt) {
    ws.settings.CgVisibleGain = 5000;
    struct Case {
        int gap;
        bool raised;
    };
    for (const Case c : {Case{2, true}, Case{10, false}}) {
        SCOPED_TRACE(c.gap);
        testkit::RawDb(st.job).exec("DELETE FROM OMBRI_DB_010");
        written = 0;
        load(ButaneThenPentane(c.gap));
        const auto nc4 = canvas->printed("NC4"), ic5 = canvas->printed("IC5");
        ASSERT_EQ(nc4.size(), 1u);
        ASSERT_EQ(ic5.size(), 1u);
        const double w = canvas->TextWidth("NC4"), h = canvas->TextHeight("NC4");
        const bool overlap =
            std::abs(nc4[0].x1 - ic5[0].x1) < w && std::abs(nc4[0].y1 - ic5[0].y1) < h;
        EXPECT_FALSE(overlap) << nc4[0].x1 << "," << nc4[0].y1 << " " << ic5[0].x1 << ","
                              << ic5[0].y1;
        // Far apart, both stand at the same height over their equal tops.
        EXPECT_NEAR(ic5[0].y1, c.raised ? nc4[0].y1 - h : nc4[0].y1, 1);
    }
}

TEST_F(DrawRunTest, TallPeakHoldsItsLabelOnThePicture) {
    ws.settings.CgVisibleGain = 200000; // the smallest size: everything is tall
    load(PeakedRun);
    const auto printed = canvas->printed("C1");
    ASSERT_EQ(printed.size(), 1u);
    EXPECT_LT(Y(4), 0) << "the peak itself is off the top";
    EXPECT_EQ(printed[0].y1, 400 - 250);
}

TEST_F(DrawRunTest, BusyDrawAsksForAnotherTry) {
    load(PeakedRun);
    ws.chro.Gcg_drawing = true;
    const int presented = canvas->presented;
    draw_chromatograph(ws);
    EXPECT_EQ(st.lastMessage(), "Function is busy");
    EXPECT_EQ(canvas->presented, presented);
    draw_chromatograph(ws);
    EXPECT_EQ(canvas->presented, presented + 1);
}

TEST_F(DrawRunTest, ImageShowsTheTraceAndItsColours) {
    auto image = std::make_shared<station::ImageCanvas>(600, 480, 9000);
    ws.chro.pb_chro = image;
    ws.settings.CgVisibleGain = 5000;
    load(PeakedRun);
    const QImage& pic = image->image();
    const double s = image->pixelsPerTwip();
    // Along the base line left of the first peak: the black trace.
    const QColor base = pic.pixelColor(int(X(1) * s), int(Y(1) * s));
    EXPECT_LT(base.lightness(), 80);
    // Some pixel of the C3 window segments is in C3's colour.
    const QColor c3 = station::ToQColor(ws.settings.ColorC3);
    auto near = [&](QColor p) {
        return std::abs(p.red() - c3.red()) + std::abs(p.green() - c3.green()) +
                   std::abs(p.blue() - c3.blue()) <
               60;
    };
    bool found = false;
    for (int x = int(X(12) * s); x <= int(X(15) * s) && !found; ++x)
        for (int y = 0; y < pic.height() && !found; ++y) found = near(pic.pixelColor(x, y));
    EXPECT_TRUE(found);
    // The report's area right of the trace has ink; the empty corner none.
    auto ink = [&](QRect r) {
        int n = 0;
        for (int x = r.left(); x <= r.right(); ++x)
            for (int y = r.top(); y <= r.bottom(); ++y) n += pic.pixelColor(x, y).lightness() < 128;
        return n;
    };
    EXPECT_GT(ink(QRect(int(4700 * s), int(150 * s), 200, 100)), 50);
    EXPECT_EQ(ink(QRect(pic.width() - 20, pic.height() - 20, 10, 10)), 0);
}

} // namespace
} // namespace chrotest
