// Where the days of the statistics begin and end, and what a block holds
// when the records are not six seconds apart.
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

QStringList Processed(const QStringList& status) {
    return status.filter("Processed ");
}

TEST(DayBlocks, StartAndEndAtTheReportHourOnceTheDateHasChanged) {
    struct Case {
        const char* what;
        QDateTime start;
        const char* reportTime;
        int records;
        QStringList blocks;
        QStringList processed;
    };
    const QDate nov1(2026, 11, 1);
    const Case cases[] = {
        // Record 14400 is 11/02 05:00:00, the first of the new date at 05.
        {"a job that starts at the report hour exactly",
         QDateTime(nov1, QTime(5, 0, 0)),
         "05:00",
         14450,
         // the last record, 14449 x 6 s = 24:04:54 after the start
         {"11/01/2026 05:00:00 - 11/02/2026 05:00:00", "11/02/2026 05:00:00 - 11/02/2026 05:04:54"},
         {"Processed 14399 number of records", "Processed 49 number of records"}},
        // 05:xx of the first date and 04:59:54 of the next don't end it.
        {"one record before the report hour",
         QDateTime(nov1, QTime(4, 59, 54)),
         "05:00",
         14460,
         // 14459 x 6 s = 24:05:54 after 04:59:54
         {"11/01/2026 04:59:54 - 11/02/2026 05:00:00", "11/02/2026 05:00:00 - 11/02/2026 05:05:48"},
         {"Processed 14400 number of records", "Processed 58 number of records"}},
        // Report hour 00:00: the first day is the hour to midnight.
        {"report hour midnight",
         QDateTime(nov1, QTime(23, 0, 0)),
         "00:00",
         15000,
         // 14999 x 6 s = 24:59:54 after 23:00:00
         {"11/01/2026 23:00:00 - 11/02/2026 00:00:00", "11/02/2026 00:00:00 - 11/02/2026 23:59:54"},
         {"Processed 599 number of records", "Processed 14399 number of records"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Job job;
        job.clock = c.start;
        job.ws.fm_setup.cmb_Report_Time.setText(c.reportTime);
        job.add(Repeat(c.records, On(1000)));
        EXPECT_EQ(Blocks(job.run()), c.blocks);
        EXPECT_EQ(Processed(job.status()), c.processed);
    }
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
    // 14501 records, then 14501 to 28799, then 28800 to 29999
    EXPECT_EQ(Processed(status()),
              QStringList({"Processed 14501 number of records", "Processed 14298 number of records",
                           "Processed 1199 number of records"}));
    // All on bottom: the first block's 14501 records count 87006 s on
    // bottom, and 86400 - 87006 = -606 s off.
    EXPECT_EQ(
        from(r, "Total Off Bottom Time: -01:-11:-06", 4),
        QStringList({"Total Off Bottom Time: -01:-11:-06", "Total On Bottom Time: 24:10:06",
                     // -606 / 86400 and 87006 / 86400
                     "Percentage Off Bottom Time: -00.7%", "Percentage Drilling Time: 100.7%"}));
    // The second block: 14299 records, 85794 s on bottom, 606 s off.
    EXPECT_TRUE(r.contains("Total Off Bottom Time: 00:10:06"));
    EXPECT_TRUE(r.contains("Total On Bottom Time: 23:49:54"));
    // The gas average divides by a day's 14400 records whatever the block
    // holds: 14501 x 10 / 14400 = 10.07, 14299 x 10 / 14400 = 9.93,
    // 1200 x 10 / 14400 = 0.83.
    EXPECT_EQ(
        r.filter("Average Gas Units:"),
        QStringList({"Average Gas Units: 10", "Average Gas Units: 10", "Average Gas Units: 1"}));
}

// A connection is a stay off bottom; the records before the job's 4 ft
// a day: on bottom 1 ft every 10 records, off bottom 40 records from `off`.
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

TEST(DayBlocks, ConnectionsAcrossMidnightAndAcrossTheReportHour) {
    struct Case {
        const char* what;
        int off; // first record off bottom; 11400 is 00:00:00 of 11/02
        QStringList firstDay;
        QStringList secondDay;
        QStringList tally; // the lines from the end of the last block
    };
    const Case cases[] = {
        // 11390 to 11429, 23:59:00 to 00:02:54, inside the first day. Feet:
        // 1138 to the connection, then 2139 at record 11430 and 296 more = 1435;
        // 240 s / (1435 / 30) = 5.02 s.
        {"across midnight",
         11390,
         {"Total Off Bottom Time: 00:04:00", "Time Per Connection Average: 00:00:05",
          "Total Ft Drilled: 1435"},
         {"Total Off Bottom Time: 23:54:00", "Time Per Connection Average: Unknown"},
         // The 11th record off bottom is 00:00:00 of 11/02: before the report
         // hour, so no break line before it, only the tally's own.
         {"END TIME: 05:05:54", "", "",
          "   1,  2138.0,  2138.0, 02/Nov/2026 00:00:00,   <- Start of logging"}},
        // 14390 to 14429, 04:59:00 to 05:02:54: ten records in the first day
        // (60 s in its first slot), thirty in the second, where no drilling
        // came first: they stay in slot 0 and the day has no connection.
        // Feet 1438: 60 / (1438 / 30) = 1.25 s.
        {"across the report hour",
         14390,
         {"Total Off Bottom Time: 00:01:00", "Time Per Connection Average: 00:00:01",
          "Total Ft Drilled: 1438"},
         // 30 records off and 30 on: 86400 - 180 s
         {"Total Off Bottom Time: 23:57:00", "Time Per Connection Average: Unknown"},
         // 05:00:00 of 11/02 is at the report hour: a break line.
         {"END TIME: 05:05:54", "", "", "",
          "   1,  2438.0,  2438.0, 02/Nov/2026 05:00:00,   <- Start of logging"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Job job;
        job.add(Connection(14460, c.off));
        const QStringList r = job.run();
        const qsizetype second = r.indexOf("START DATE: 11/02/2026");
        ASSERT_GT(second, 0);
        const QStringList day1 = r.mid(0, second), day2 = r.mid(second);
        for (const QString& l : c.firstDay) EXPECT_TRUE(day1.contains(l)) << l.toStdString();
        for (const QString& l : c.secondDay) EXPECT_TRUE(day2.contains(l)) << l.toStdString();
        EXPECT_EQ(r.mid(r.indexOf("END TIME: 05:05:54")), c.tally);
    }
}

} // namespace
