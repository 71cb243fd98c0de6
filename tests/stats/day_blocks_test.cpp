// Where the days of the statistics begin and end.
#include "stats_fixture.h"

namespace {

using namespace statstest;

// The blocks of a report as "start date time - end date time" (the hand
// worked job checks the words of these lines).
QStringList Blocks(const QStringList& report) {
    QStringList v, out;
    for (const QString& l : report)
        if (l.startsWith("START ") || l.startsWith("END ")) v << l.mid(l.indexOf(": ") + 2);
    for (int i = 0; i + 3 < v.size(); i += 4)
        out << v[i] + " " + v[i + 1] + " - " + v[i + 2] + " " + v[i + 3];
    return out;
}

TEST_F(StatsJob, AtAReportHourOfMidnightTheFirstDayIsTheHourToMidnight) {
    clock = QDateTime(QDate(2026, 11, 1), QTime(23, 0, 0));
    ws.fm_setup.cmb_Report_Time.setText("00:00");
    add(Repeat(15000, On(1000)));
    // The last record: 14999 x 6 s = 24:59:54 after 23:00:00.
    EXPECT_EQ(Blocks(run()), QStringList({"11/01/2026 23:00:00 - 11/02/2026 00:00:00",
                                          "11/02/2026 00:00:00 - 11/02/2026 23:59:54"}));
}

TEST_F(StatsJob, ThreeSecondPacketsCutADayAt14501RecordsWithNegativeOffBottomTime) {
    // A block stops at 14501 records (n past 14500), 12:05:03 into the day,
    // and the next one runs on the first day's date to 05:00 of the next.
    secondsApart = 3;
    add(Repeat(30000, On(1000)));
    const QStringList r = run();
    EXPECT_EQ(Blocks(r),
              // the last record 29999 x 3 s = 24:59:57 after the start
              QStringList({"11/01/2026 05:00:00 - 11/01/2026 17:05:03",
                           "11/01/2026 17:05:03 - 11/02/2026 05:00:00",
                           "11/02/2026 05:00:00 - 11/02/2026 05:59:57"}));
    // All on bottom: the first block's 14501 records count 87006 s on
    // bottom, and 86400 - 87006 = -606 s off.
    EXPECT_EQ(
        r.mid(r.indexOf("Total Off Bottom Time: -01:-11:-06"), 4),
        QStringList({"Total Off Bottom Time: -01:-11:-06", "Total On Bottom Time: 24:10:06",
                     // -606 / 86400 and 87006 / 86400
                     "Percentage Off Bottom Time: -00.7%", "Percentage Drilling Time: 100.7%"}));
}

// On bottom 1 ft every 10 records, off bottom 40 records from `off`.
std::vector<Rec> Connection(int records, int off) {
    std::vector<Rec> rows;
    double depth = 1000;
    for (int i = 0; i < records; ++i) {
        if (i >= off && i < off + 40) {
            rows.push_back(Off(depth));
            continue;
        }
        if (i > 0 && (i < off ? i : i - off - 40) % 10 == 0) depth += 1;
        rows.push_back(On(depth));
    }
    return rows;
}

TEST_F(StatsJob, AConnectionAcrossTheReportHourSplitsBetweenTheDays) {
    // Off bottom from record 14390 to 14429, 04:59:00 to 05:02:54: ten
    // records in the first day (60 s in its first slot), thirty in the
    // second, where no drilling came first: they stay in slot 0 and the day
    // has no connection. Feet 1438: 60 / (1438 / 30) = 1.25 s.
    add(Connection(14460, 14390));
    const QStringList r = run();
    const qsizetype second = r.indexOf("START DATE: 11/02/2026");
    ASSERT_GT(second, 0);
    const QStringList day1 = r.mid(0, second), day2 = r.mid(second);
    for (const char* l : {"Total Off Bottom Time: 00:01:00",
                          "Time Per Connection Average: 00:00:01", "Total Ft Drilled: 1438"})
        EXPECT_TRUE(day1.contains(l)) << l;
    // 30 records off and 30 on: 86400 - 180 s.
    for (const char* l :
         {"Total Off Bottom Time: 23:57:00", "Time Per Connection Average: Unknown"})
        EXPECT_TRUE(day2.contains(l)) << l;
    // 05:00:00 of 11/02 is at the report hour: a break line before the tally.
    EXPECT_EQ(r.mid(r.indexOf("END TIME: 05:05:54")),
              QStringList({"END TIME: 05:05:54", "", "", "",
                           "   1,  2438.0,  2438.0, 02/Nov/2026 05:00:00,   <- Start of logging"}));
}

} // namespace
