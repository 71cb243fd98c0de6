// The local stream's intake and parse: which lines are items, where their
// values go, the health count, the buffer rules and the foot counting.
#include "wits_fixture.h"

using witstest::WitsTest;

namespace {

class Receive : public WitsTest {};

TEST_F(Receive, ItemLinesByLengthCodeAndValue) {
    struct Case {
        const char* line;
        // The list line's code and value; nullptr when the line is skipped.
        const char *code, *shown;
        int slot; // -1: no slot written
        double stored;
    };
    const Case cases[] = {
        {"0111-9999", nullptr, nullptr, -1, 0}, // the probe's unset item, echoed back
        {"01081", nullptr, nullptr, -1, 0},     // five characters: too short
        {"010812", "0108", "12", 0, 12},
        {"0090123", nullptr, nullptr, -1, 0}, // code 90: below the range
        {"0091123", "091", "123", -1, 0},
        {"9899123", "9899", "123", -1, 0},
        {"9900123", nullptr, nullptr, -1, 0}, // code 9900: above it
        {"0123-3", "0123", "-3", 8, 0},       // shown as sent, stored as 0
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        ws.wits.Gwits_values.fill(-1);
        ws.more_data.wits_info.clearItems();
        ws.wits.Gwits_alive = 60;
        ws.wits.WITS_in_buffer = "\r\n&&\r\n" + QString(c.line) + "\r\n!!\r\n";
        wits::Parse_WITS_String(ws);
        ASSERT_EQ(list().size(), c.code ? 1 : 0);
        if (c.code) {
            EXPECT_TRUE(list()[0].startsWith(c.code + QString("  ")) &&
                        list()[0].endsWith("  " + QString(c.shown)))
                << list()[0];
        }
        for (int s = 0; s < 22; ++s) {
            // A bit depth raises the hole with it.
            const bool written = s == c.slot || (c.slot == 0 && s == 1);
            EXPECT_DOUBLE_EQ(slot(s), written ? c.stored : -1) << s;
        }
    }
}

TEST_F(Receive, OnlyCrEndsALineAndNeitherTheFirstPartNorAnUnendedTailIsRead) {
    struct Case {
        const char* name;
        QStringList reads;
        double hole; // slot 1 after the parse; -1: untouched
    };
    const Case cases[] = {
        {"CR alone", {"\r&&\r01105001.5\r!!\r"}, 5001.5},
        {"LF alone: no line ever ends", {"\n&&\n01105003.5\n!!\n"}, -1},
        {"LF inside a line is dropped", {"\r\n&&\r\n0110\n5004.5\r\n!!\r\n"}, 5004.5},
        // No blank line in front: the first item is never looked at.
        {"first part", {"&&\r\n0110100\r\n!!\r\n"}, -1},
        // What follows the last CR of a read is lost with the buffer, and so
        // is the head of the next read.
        {"frame split over two reads", {"\r\n&&\r\n0110500\r\n01", "10400\r\n!!\r\n"}, 500},
    };
    for (const Case& c : cases) {
        slot(0) = slot(1) = -1;
        ws.wits.Gwits_alive = 60;
        for (const QString& read : c.reads) receive(read);
        EXPECT_DOUBLE_EQ(slot(1), c.hole) << c.name;
        EXPECT_TRUE(ws.wits.WITS_in_buffer.isEmpty()) << c.name;
    }
}

TEST_F(Receive, HealthCountComesOnlyFromADepthItemWithBothFrameMarks) {
    struct Case {
        const char* name;
        QString text;
        int alive;
    };
    const Case cases[] = {
        {"hole depth 0110", "\r\n&&\r\n01105000\r\n!!\r\n", 60},
        {"lag depth only", "\r\n&&\r\n01395000\r\n!!\r\n", 0},
        {"no end mark", "\r\n&&\r\n01105000\r\n", 0},
        {"no start mark", "\r\n01105000\r\n!!\r\n", 0},
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

TEST_F(Receive, FramesFillTheSlotsTheListAndThePumpButton) {
    ws.wits.Gwits_alive = 60;
    ws.wits.Gspm = 92.6;
    // The hole is raised to the bit only when the bit line comes last.
    receive(LedFrame({{110, "5000.0"}, {108, "5000.5"}, {113, "45"}}));
    EXPECT_DOUBLE_EQ(slot(1), 5000.5);
    receive(LedFrame({{108, "5100.5"}, {110, "5100.0"}, {113, "46"}, {9876, "7.5"}}));
    EXPECT_DOUBLE_EQ(slot(1), 5100.0);
    // One row per code, the newest value in it.
    ASSERT_EQ(list().size(), 4);
    EXPECT_TRUE(list()[2].startsWith("0113  ") && list()[2].endsWith("  46")) << list()[2];
    EXPECT_EQ(list()[3], "9876  Unknown  7.5");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.caption(), "93 SPM");
}

TEST_F(Receive, FootCountingGivesTheRateFromSecondsOnBottom) {
    ws.wits.Gwits_alive = 60;
    struct Step {
        int onBottom; // seconds of the ROP tick with the bit on bottom first
        const char* hole;
        int32_t lastFoot;
        double minFt, ftHr;
    };
    const Step steps[] = {
        {0, "5000.4", 5000, 0, 0},
        // 200 seconds, then a new foot: 3.33 min/ft (two decimals at most).
        {200, "5001.1", 5001, 3.33, 18},
        // A foot made within 10 seconds leaves the rates alone.
        {10, "5002", 5002, 3.33, 18},
        // A fall of 150 keeps the last foot; more than 200 starts again.
        {0, "4852", 5002, 3.33, 18},
        {0, "4801", 4801, 3.33, 18},
        // A garbage depth stops at the nearest foot a counter can hold,
        // and a sane depth behind it starts again.
        {0, "150001000000", INT32_MAX, 3.33, 18},
        {0, "5000", 5000, 3.33, 18},
        {0, "-150001000000", INT32_MIN, 3.33, 18},
    };
    for (const Step& s : steps) {
        SCOPED_TRACE(s.hole);
        slot(0) = std::trunc(slot(1));
        for (int i = 0; i < s.onBottom; ++i) wits::tmr_ROP_Timer_Timer(ws);
        receive(LedFrame({{110, s.hole}}));
        EXPECT_EQ(ws.wits.WITS_last_foot, s.lastFoot);
        EXPECT_DOUBLE_EQ(wits::WitsMinFt(ws), s.minFt);
        EXPECT_DOUBLE_EQ(wits::WitsFtHr(ws), s.ftHr);
    }
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 10) << "the short foot's seconds stand";

    // Off bottom the clock stands still; on bottom it wraps rather than
    // overflows.
    slot(0) = slot(1) - 10;
    wits::tmr_ROP_Timer_Timer(ws);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 10);
    ws.wits.WITS_rop_seconds = 3999999999LL;
    slot(0) = slot(1);
    wits::tmr_ROP_Timer_Timer(ws);
    EXPECT_EQ(ws.wits.WITS_rop_seconds, 0);
}

TEST_F(Receive, LongLinesAndNoiseAreBoundedCountedAndHarmless) {
    // A 100,000-character line with no end, while the stream is not yet
    // trusted: the buffer keeps only its limit, the view its low mark.
    const QString junk(100000, QChar('x'));
    receive(junk);
    EXPECT_EQ(ws.wits.WITS_in_buffer.size(), wits::kInBufferLimit);
    EXPECT_EQ(ws.fm_WITS.txt_Raw_WITS_In.text().size(), wits::kRawViewLow);

    // A good frame behind it still gets through.
    receive(LedFrame({{110, "5000"}, {108, "4999"}}));
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_DOUBLE_EQ(slot(0), 4999);
    EXPECT_TRUE(ws.wits.WITS_in_buffer.isEmpty());

    // The incoming view stays under its high mark however much comes.
    for (int i = 0; i < 200; ++i) receive(LedFrame({{110, "5000"}, {113, QString::number(i)}}));
    EXPECT_LE(ws.fm_WITS.txt_Raw_WITS_In.text().size(), wits::kRawViewHigh);
    EXPECT_TRUE(ws.fm_WITS.txt_Raw_WITS_In.text().endsWith("0113199\r\n!!\r\n"));
}

} // namespace
