#include "chro_fixture.h"

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
    // Loads run 2 of a fresh job (its samples are records 1.. of the run
    // and the first of run 3).
    void load(const std::function<double(int)>& cgv, int records = 40) {
        testkit::RawDb(st.job).exec("DELETE FROM OMBRI_DB_010");
        written = 0;
        write({{1, 40}, {2, records, cgv}, {3, 40}});
        view(5, 20);
    }
    // Where sample i of the run stands across the canvas.
    double X(int i) const { return 300 + i * 4100.0 / run().CgCount; }
    std::vector<CanvasCall> inC3() const {
        return canvas->lines([&](const CanvasCall& c) { return c.color == ws.settings.ColorC3; });
    }
};

TEST_F(DrawRunTest, PeakLabelsStandOverTheTopsInTheirColours) {
    ws.settings.CgVisibleGain = 5000;
    load(PeakedRun);
    // The samples start at the run's second record: sample i is record i+1.
    const auto c3 = canvas->printed("C3");
    ASSERT_EQ(c3.size(), 1u);
    EXPECT_DOUBLE_EQ(c3[0].x1, X(13) - 100);
    EXPECT_EQ(c3[0].color, ws.settings.ColorC3);
    // C1 and C2 were found too, at their own windows' highest samples.
    EXPECT_EQ(canvas->printed("C1").size(), 1u);
    EXPECT_EQ(canvas->printed("C2").size(), 1u);
    EXPECT_EQ(inC3().size(), 4u + 1u) << "four window segments and the drop line";

    // With the timing lines off there are no labels and no colours.
    cmd_timing_lines_Click(ws);
    EXPECT_EQ(ws.fm_chro.cmd_timing_lines.caption(), "Timing Lines Are Off");
    EXPECT_TRUE(canvas->printed("C1").empty());
    EXPECT_TRUE(inC3().empty());

    // A draw asked for while one is under way is refused once, told.
    ws.chro.Gcg_drawing = true;
    const int presented = canvas->presented;
    draw_chromatograph(ws);
    EXPECT_EQ(st.lastMessage(), "Function is busy");
    draw_chromatograph(ws);
    EXPECT_EQ(canvas->presented, presented + 1);
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
         {"  Kettlewick Chromatograph", "               Depth: 4500",
          "           Bit Depth: NO WITS", "         Sample Date: 2026/Nov/02",
          "         Sample Time: 06:04:00", "     GU At Injection: 102", "        Injection ID: 2",
          // 53 of 63.5001 gas units of 102.
          "     Calc Methane C1: 85.13 (83.46%) ", "   Calc CG Gas Units: 102.0",
          "         Column Temp: 61.3", "         Cg Pressure: 760 mmHG",
          "   SN And Job Number: KW1042", "        Lagged Depth: 4480", "        Visible Gain: 3%",
          "        C1 Peak Time: 00:36", "        C3 Peak Time: 01:36", "          Good Peaks: 3",
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
    }
}

} // namespace
} // namespace chrotest
