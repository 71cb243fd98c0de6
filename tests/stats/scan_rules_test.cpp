// The rules of one record at a time: connection slots and tally entries.
#include "stats/day_block.h"
#include "stats/tally.h"

#include <gtest/gtest.h>

namespace {

using db::Variant;

// A day's first drilling run, five records off bottom, a second run and five
// more off bottom, the bit just within a foot of the hole and just not.
stats::DailyCounters Day(int first, int second) {
    stats::DayScan scan;
    scan.startBlock(Variant(1000.0));
    const auto minFt = [] { return 1.0; };
    for (int run : {first, second}) {
        for (int i = 0; i < run; ++i)
            scan.take(Variant(1000.0), Variant(999.01), minFt, Variant(10.0));
        for (int i = 0; i < 5; ++i)
            scan.take(Variant(1000.0), Variant(999.0), minFt, Variant(10.0));
    }
    return scan.counters();
}

TEST(ScanRules, TheFiftyFirstRecordOnBottomOpensAConnectionSlot) {
    struct Case {
        int first, second;
        int slots;
        std::vector<int32_t> seconds; // slots 0, 1, 2
    };
    const Case cases[] = {
        // After a connection, 50 records drilling join the next stay off
        // bottom to it; 51 open a slot of its own.
        {300, 50, 1, {0, 60, 0}},
        {300, 51, 2, {0, 30, 30}},
        // The run counts from the last connection: 20 + 30 is not enough,
        // 20 + 31 is. Before the day's first connection, slot 0.
        {20, 30, 0, {60, 0, 0}},
        {20, 31, 1, {30, 30, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.first << " then " << c.second);
        const stats::DailyCounters d = Day(c.first, c.second);
        EXPECT_EQ(d.conn_index, c.slots);
        for (size_t i = 0; i < c.seconds.size(); ++i) EXPECT_EQ(d.conn_seconds[i], c.seconds[i]);
    }
}

TEST(ScanRules, AStayOffBottomIsATallyEntryFromItsEleventhRecordAfter26Feet) {
    struct Case {
        const char* what;
        int offRecords;
        double depth; // of the second connection, the first being at 1000
        bool second;
    };
    const Case cases[] = {
        {"10 records", 10, 1030, false},
        {"26 ft", 11, 1026, false},
        {"11 records, 26.5 ft", 11, 1026.5, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        stats::TallyScan scan;
        int entries = 0;
        auto stay = [&](double depth, int records) {
            for (int i = 0; i < 5; ++i) scan.take(Variant(depth), Variant(depth));
            for (int i = 0; i < records; ++i)
                if (scan.take(Variant(depth), Variant(depth - 0.51))) {
                    scan.connectionAt(
                        QDateTime(QDate(2026, 11, 1), QTime(6, 0)).addSecs(600 * ++entries));
                }
        };
        stay(1000, 30); // one stay off bottom, however long: one entry
        stay(c.depth, c.offRecords);
        EXPECT_EQ(entries, c.second ? 2 : 1);
        EXPECT_EQ(scan.arrays().depths[2], c.second ? c.depth : 0);
    }
}

TEST(ScanRules, TheFirstEntryStartsTheLoggingAndThe5000thIsNeverTaken) {
    // A well 26 ft deeper at every connection reaches the 50000 ft of a
    // depth spike long before 4999 entries; the bound is the arrays'.
    stats::TallyScan scan;
    QDateTime t(QDate(2026, 11, 1), QTime(6, 0));
    for (int i = 0; i < 6000 && !scan.full(); ++i) {
        const double depth = 1000 + 26.5 * i;
        scan.take(Variant(depth), Variant(depth));
        for (int k = 0; k < 11; ++k)
            if (scan.take(Variant(depth), Variant(depth - 20)))
                scan.connectionAt(t.addSecs(60 * i));
    }
    const QStringList deepest = stats::TallyLines(scan.arrays(), "05:00");
    // 1000 + 26.5 i stays under 50000 up to i = 1849 (49998.5 ft): 1850
    // entries, then the spike rule holds the depth there. The times run from
    // 01 Nov 06:00 to 02 Nov 12:49: a break line before each day's first.
    EXPECT_EQ(deepest.size(), 1850 + 2);
    EXPECT_FALSE(scan.full());

    // Filled to the bound by hand, 10 ft apart: 4999 entries and the scan is
    // full, so there is never a 5000th.
    stats::TallyScan full;
    for (int i = 1; i < 5000; ++i) {
        EXPECT_FALSE(full.full()) << i;
        full.take(Variant(10.0 * i), Variant(0.0));
        full.connectionAt(t.addSecs(60 * i));
    }
    EXPECT_TRUE(full.full());
    const QStringList l = stats::TallyLines(full.arrays(), "05:00");
    // Four dates, 01 to 04 Nov, each with a break line.
    ASSERT_EQ(l.size(), 4999 + 4);
    EXPECT_EQ(l[0], "");
    // The first entry has no time before it.
    EXPECT_EQ(l[1], "   1,    10.0,    10.0, 01/Nov/2026 06:01:00, ");
    // 06:00 + 4999 min = 06:00 + 3 days 11:19.
    EXPECT_EQ(l.last(), "4999, 49990.0,    10.0, 04/Nov/2026 17:19:00, 00:01:00");
}

} // namespace
