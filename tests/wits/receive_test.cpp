// The local stream's intake and parse: which lines are items, where their
// values go, the health count, the buffer rules and the foot counting.
#include "wits_fixture.h"

#include "text/numbers.h"

using witstest::WitsTest;

namespace {

class Receive : public WitsTest {};

TEST_F(Receive, ItemLinesByLengthCodeAndValue) {
    struct Case {
        const char* line;
        bool listed; // reaches the display list
        int slot;    // -1: no slot written
        double stored;
        const char* shown; // the list line, when listed
    };
    const Case cases[] = {
        {"0111-9999", false, -1, 0, nullptr}, // the probe's unset item, echoed back
        {"0108-9999", false, -1, 0, nullptr}, // unset, even for a depth
        {"01081", false, -1, 0, nullptr},     // five characters: too short
        {"010812", true, 0, 12, "0108  Bit Depth  12"},
        {"0090123", false, -1, 0, nullptr}, // code 90: below the range
        {"0091123", true, -1, 0, "091  Unknown  123"},
        {"9899123", true, -1, 0, "9899  Unknown  123"},
        {"9900123", false, -1, 0, nullptr},                     // code 9900: above it
        {"0123-3", true, 8, 0, "0123  Pump 1 Strokes/Min  -3"}, // shown as sent, stored as 0
        {"0124 61.9", true, 9, 61, nullptr},                    // whole part of a pump rate
        {"garbage line here", false, -1, 0, nullptr},
        {"0110abc", true, 1, 0, "0110  Hole Depth  0"}, // no number reads as 0
    };
    for (const Case& c : cases) {
        ws.wits.Gwits_values.fill(-1);
        ws.more_data.wits_info.clearItems();
        ws.wits.Gwits_alive = 60;
        const long skipped = ws.wits.counts.linesSkipped;
        ws.wits.WITS_in_buffer = "\r\n&&\r\n" + QString(c.line) + "\r\n!!\r\n";
        wits::Parse_WITS_String(ws);
        SCOPED_TRACE(c.line);
        EXPECT_TRUE(ws.wits.WITS_in_buffer.isEmpty());
        EXPECT_EQ(list().size(), c.listed ? 1 : 0);
        EXPECT_EQ(ws.wits.counts.linesSkipped - skipped, c.listed ? 0 : 1);
        if (c.shown && !list().isEmpty()) {
            // The name comes from the item file; check the frame of the line.
            const QString got = list().first();
            const QString want = c.shown;
            EXPECT_EQ(got.left(got.indexOf("  ")), want.left(want.indexOf("  ")));
            EXPECT_EQ(got.mid(got.lastIndexOf("  ")), want.mid(want.lastIndexOf("  ")));
        }
        if (c.slot >= 0) {
            EXPECT_DOUBLE_EQ(slot(c.slot), c.stored);
        }
        for (int s = 0; s < 22; ++s)
            if (s != c.slot && !(c.slot == 0 && s == 1)) {
                EXPECT_DOUBLE_EQ(slot(s), -1) << s;
            }
    }
}

TEST_F(Receive, LineEndsOnInputCrEndsALineLfIsIgnored) {
    struct Case {
        const char* name;
        QString buffer;
        double hole; // slot 1 after the parse; -1: untouched
    };
    const Case cases[] = {
        {"CR LF", "\r\n&&\r\n01105000.5\r\n!!\r\n", 5000.5},
        {"CR alone", "\r&&\r01105001.5\r!!\r", 5001.5},
        {"LF CR", "\n\r&&\n\r01105002.5\n\r!!\n\r", 5002.5},
        {"LF alone: no line ever ends", "\n&&\n01105003.5\n!!\n", -1},
        {"LF inside a line is dropped", "\r\n&&\r\n0110\n5004.5\r\n!!\r\n", 5004.5},
    };
    for (const Case& c : cases) {
        slot(1) = -1;
        ws.wits.Gwits_alive = 60;
        ws.wits.WITS_in_buffer = c.buffer;
        wits::Parse_WITS_String(ws);
        EXPECT_DOUBLE_EQ(slot(1), c.hole) << c.name;
        EXPECT_TRUE(ws.wits.WITS_in_buffer.isEmpty()) << c.name;
    }
}

TEST_F(Receive, TheFirstPartAndAnUnendedTailAreNeverRead) {
    ws.wits.Gwits_alive = 60;
    // No blank line in front: the first item sits before the first CR's
    // part and is never looked at.
    ws.wits.WITS_in_buffer = "&&\r\n0108100\r\n0110200\r\n!!\r\n";
    slot(0) = -1;
    wits::Parse_WITS_String(ws);
    EXPECT_DOUBLE_EQ(slot(0), -1);
    EXPECT_DOUBLE_EQ(slot(1), 200);

    // A frame split over two reads: what follows the last CR of the first
    // read is lost with the buffer, and so is the head of the second read.
    slot(0) = slot(1) = -1;
    receive("\r\n&&\r\n0110500\r\n01");
    receive("08400\r\n!!\r\n\r\n&&\r\n0113 45\r\n!!\r\n");
    EXPECT_DOUBLE_EQ(slot(1), 500);
    EXPECT_DOUBLE_EQ(slot(0), -1);
    EXPECT_DOUBLE_EQ(slot(2), 45);
}

TEST_F(Receive, HealthCountComesOnlyFromADepthItemWithBothFrameMarks) {
    struct Case {
        const char* name;
        QString text;
        int alive;
    };
    const Case cases[] = {
        {"hole depth 0110", "\r\n&&\r\n01105000\r\n!!\r\n", 60},
        {"hole depth 1108", "\r\n&&\r\n11085000\r\n!!\r\n", 60},
        {"bit depth 0108", "\r\n&&\r\n01085000\r\n!!\r\n", 60},
        {"lag depth only", "\r\n&&\r\n01395000\r\n!!\r\n", 0},
        {"no end mark", "\r\n&&\r\n01105000\r\n", 0},
        {"no start mark", "\r\n01105000\r\n!!\r\n", 0},
        {"garbage", "noise 0110 noise", 0},
    };
    for (const Case& c : cases) {
        ws.wits.Gwits_alive = 0;
        ws.wits.WITS_in_buffer.clear();
        receive(c.text);
        EXPECT_EQ(ws.wits.Gwits_alive, c.alive) << c.name;
        // Until the stream is vouched for, the buffer only grows.
        EXPECT_EQ(ws.wits.WITS_in_buffer.isEmpty(), c.alive > 5) << c.name;
    }
    // While the count is up, a frame with no depth item is parsed all the
    // same though it does not refresh the count.
    ws.wits.Gwits_alive = 30;
    ws.wits.WITS_in_buffer.clear();
    receive("\r\n&&\r\n01394321.5\r\n0113 12\r\n!!\r\n");
    EXPECT_EQ(ws.wits.Gwits_alive, 30);
    EXPECT_DOUBLE_EQ(slot(2), 12);
}

TEST_F(Receive, TheHoleIsRaisedToTheBitWhenTheBitLineComes) {
    ws.wits.Gwits_alive = 60;
    receive(LedFrame({{110, "5000.0"}, {108, "5000.5"}}));
    EXPECT_DOUBLE_EQ(slot(0), 5000.5);
    EXPECT_DOUBLE_EQ(slot(1), 5000.5);
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "5000.5");
    // The other way round the hole line comes last and stands.
    receive(LedFrame({{108, "5100.5"}, {110, "5100.0"}}));
    EXPECT_DOUBLE_EQ(slot(1), 5100.0);
}

TEST_F(Receive, TheListKeepsOneRowPerCodeAndAMissingItemFileGivesUnknown) {
    ws.wits.Gwits_alive = 60;
    receive(LedFrame({{110, "5000"}, {113, "45"}}));
    receive(LedFrame({{113, "46"}, {9876, "7.5"}}));
    ASSERT_EQ(list().size(), 3);
    EXPECT_TRUE(list()[1].startsWith("0113  ") && list()[1].endsWith("  46")) << list()[1];
    EXPECT_TRUE(list()[2].startsWith("9876  Unknown  7.5")) << list()[2];

    // No item file beside the program: every name reads "Unknown", the
    // values are stored as usual.
    QFile::remove(folder.file("WITSconfig_V10.txt"));
    wits::LoadWitsFile(ws);
    ws.more_data.wits_info.clearItems();
    const long unknown = ws.wits.counts.unknownCodes;
    receive(LedFrame({{110, "5200"}, {823, "88.5"}}));
    EXPECT_EQ(list(), QStringList({"0110  Unknown  5200", "0823  Unknown  88.5"}));
    EXPECT_DOUBLE_EQ(slot(1), 5200);
    EXPECT_DOUBLE_EQ(slot(21), 88.5);
    EXPECT_EQ(ws.wits.counts.unknownCodes - unknown, 2);
}

TEST_F(Receive, FootCountingGivesTheRateFromSecondsOnBottom) {
    ws.wits.Gwits_alive = 60;
    auto hole = [&](const char* depth) { receive(LedFrame({{110, depth}})); };
    hole("5000.4");
    EXPECT_EQ(ws.wits.WITS_last_foot, 5000);

    // 150 seconds on bottom, then a new foot: 2.5 min/ft, 24 ft/hr.
    slot(0) = 5000.2;
    for (int i = 0; i < 150; ++i) wits::tmr_ROP_Timer_Timer(ws);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 150);
    hole("5001.1");
    EXPECT_EQ(ws.wits.WITS_last_foot, 5001);
    EXPECT_DOUBLE_EQ(wits::WitsMinFt(ws), 2.5);
    EXPECT_DOUBLE_EQ(wits::WitsFtHr(ws), 24);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 0);

    // Off bottom the clock stands still.
    slot(0) = 4990;
    wits::tmr_ROP_Timer_Timer(ws);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 0);

    // 200 seconds: 3.33 min/ft, 18 ft/hr (two decimals at most).
    slot(0) = 5001;
    for (int i = 0; i < 200; ++i) wits::tmr_ROP_Timer_Timer(ws);
    hole("5002");
    EXPECT_DOUBLE_EQ(wits::WitsMinFt(ws), 3.33);
    EXPECT_DOUBLE_EQ(wits::WitsFtHr(ws), 18);

    // A foot made within 10 seconds leaves the rates and the clock alone.
    slot(0) = 5002;
    for (int i = 0; i < 10; ++i) wits::tmr_ROP_Timer_Timer(ws);
    hole("5003");
    EXPECT_EQ(ws.wits.WITS_last_foot, 5003);
    EXPECT_DOUBLE_EQ(wits::WitsMinFt(ws), 3.33);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 10);

    // A fall of 150 keeps the last foot; no foot counts until it is passed.
    hole("4853");
    EXPECT_EQ(ws.wits.WITS_last_foot, 5003);
    // A fall of more than 200 starts again from there.
    hole("4802");
    EXPECT_EQ(ws.wits.WITS_last_foot, 4802);

    // The clock wraps rather than overflows.
    ws.wits.WITS_rop_seconds = 3999999999LL;
    slot(0) = slot(1) = 4802;
    wits::tmr_ROP_Timer_Timer(ws);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 0);
}

TEST_F(Receive, AHoleDepthBeyondAnyFootStopsAtTheLastFootCountedAndCountingGoesOn) {
    // A recorder that sends garbage as a depth: the foot counter takes the
    // nearest foot it can hold, and a sane depth behind it starts again.
    ws.wits.Gwits_alive = 60;
    auto hole = [&](const char* depth) { receive(LedFrame({{110, depth}})); };
    struct Case {
        const char* depth;
        int32_t lastFoot;
    } cases[] = {
        {"150001000000", INT32_MAX},
        {"5000", 5000},
        {"-150001000000", INT32_MIN}, // a fall of more than 200 ...
        {"4700", 4700},               // ... and the counting starts again
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.depth);
        hole(c.depth);
        EXPECT_EQ(ws.wits.WITS_last_foot, c.lastFoot);
    }
}

TEST_F(Receive, PumpButtonFollowsTheStrokeRate) {
    ws.wits.Gwits_alive = 60;
    ws.wits.Gspm = 92.6;
    receive(LedFrame({{110, "5000"}}));
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.caption(), "93 SPM");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.backColor(), forms::color::Green);
    ws.wits.Gspm = 0;
    receive(LedFrame({{110, "5000"}}));
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.caption(), "Pumps Off");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.backColor(), forms::color::Red);
}

TEST_F(Receive, LongLinesAndNoiseAreBoundedCountedAndHarmless) {
    // A 100,000-character line with no end, while the stream is not yet
    // trusted: the buffer keeps only its limit, the view its low mark.
    const QString junk(100000, QChar('x'));
    receive(junk);
    EXPECT_EQ(ws.wits.WITS_in_buffer.size(), wits::kInBufferLimit);
    EXPECT_EQ(ws.fm_WITS.txt_Raw_WITS_In.text().size(), wits::kRawViewLow);
    EXPECT_EQ(ws.wits.counts.bufferCuts, 1);
    EXPECT_EQ(ws.wits.counts.charsDropped, 100000 - wits::kInBufferLimit);

    // A good frame behind it still gets through.
    receive(LedFrame({{110, "5000"}, {108, "4999"}}));
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_DOUBLE_EQ(slot(0), 4999);
    EXPECT_TRUE(ws.wits.WITS_in_buffer.isEmpty());

    // A long line inside a frame is one skipped line.
    const long skipped = ws.wits.counts.linesSkipped;
    receive("\r\n&&\r\n" + QString(5000, QChar('x')) + "\r\n0113 9\r\n!!\r\n");
    EXPECT_EQ(ws.wits.counts.linesSkipped - skipped, 1);
    EXPECT_DOUBLE_EQ(slot(2), 9);

    // The incoming view stays under its high mark however much comes.
    for (int i = 0; i < 200; ++i) receive(LedFrame({{110, "5000"}, {113, QString::number(i)}}));
    EXPECT_LE(ws.fm_WITS.txt_Raw_WITS_In.text().size(), wits::kRawViewHigh);
    EXPECT_TRUE(ws.fm_WITS.txt_Raw_WITS_In.text().endsWith("0113199\r\n!!\r\n"));
}

} // namespace
