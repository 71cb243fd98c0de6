// A job whose every figure was worked out by hand, against the report.
#include "stats_fixture.h"

namespace {

using namespace statstest;

// 20000 records from 11/01/2026 05:00:00, six seconds apart, in cycles of 720
// records (72 minutes): 660 drilling (30 ft, a new foot every 22 records),
// then 60 off bottom for the connection. Cycle c drills from 1000 + 30c ft.
//   - Minutes per foot: 1 in even cycles, 2 in odd ones; Null off bottom.
//   - Gas: 10 drilling, 50 at the connection; 910 once (cycle 5, record 100).
//   - Cycle 10 only reams at the connection: the bit 0.3 ft off the hole,
//     which both the day's and the tally's rules take as on bottom, at 3 min/ft.
//   - Cycle 2, record 50: a depth spike of 99999 ft. Cycle 3, record 105: no
//     bit depth (the bit stays where it was, at the same foot).
std::vector<Rec> HandJob() {
    std::vector<Rec> rows;
    for (int c = 0; c < 28; ++c) {
        const double base = 1000 + 30 * c;
        const double rate = c % 2 == 0 ? 1 : 2;
        for (int j = 0; j < 660; ++j) {
            Rec r = On(base + j / 22, rate);
            if (c == 5 && j == 100) r.gas = 910;
            if (c == 2 && j == 50) r.depth = 99999;
            if (c == 3 && j == 105) r.bit.reset();
            rows.push_back(r);
        }
        for (int j = 0; j < 60; ++j) {
            Rec r = Off(base + 29, 50);
            if (c == 10) r = {base + 29, base + 29 - 0.3, 3, 50};
            rows.push_back(r);
        }
    }
    rows.resize(20000);
    return rows;
}

TEST_F(StatsJob, EveryFigureOfAHandWorkedJob) {
    add(HandJob());
    const QStringList got = run();

    const QStringList want = {
        "*************************************************************",
        "Ombri Instruments general Stats report and tally generator",
        "Date of report generated: 11/03/2026 08:00:00",
        "Database used: " + path,
        "*************************************************************",
        "",
        "",
        "Start of database date (YYYY/MM/DD): 11/01/2026",
        "Start of database time (24H format): 05:00:00",
        "",
        // Day 1: records 0 to 14399 (cycles 0-19); the block ends at the
        // first record of 11/02 at 05:xx, record 14400.
        "START DATE: 11/01/2026",
        "START TIME: 05:00:00",
        // on = 20 x 660 drilling + 60 reaming = 13260 records = 79560 s;
        // off = 86400 - 79560 = 6840 s.
        "Total Off Bottom Time: 01:54:00",
        "Total On Bottom Time: 22:06:00",
        // 6840 / 86400 = 7.9166 %, 79560 / 86400 = 92.0833 %.
        "Percentage Off Bottom Time: 07.9%",
        "Percentage Drilling Time: 92.1%",
        // 19 connections (cycle 10 reamed) of 60 records: 19 x 360 = 6840 s.
        // Feet: 29 new feet in each of 20 cycles + 19 between them = 599 (the
        // spike changes nothing). 6840 / (599 / 30) = 342.57 -> 343 s.
        "Time Per Connection Average: 00:05:43",
        // (13200 x 10 + 900 + 1200 x 50) / 14400 = 192900 / 14400 = 13.4.
        "Average Gas Units: 13",
        // (10 x 660 x 1 + 10 x 660 x 2 + 60 x 3) / 13260 = 19980 / 13260 = 1.5068;
        // 60 / 1.5068 = 39.8198.
        "Average (ON BOTTOM) ROP Min/Ft: 1.51",
        "Average (ON BOTTOM) ROP Ft/Hr: 39.82",
        "Max Gas Units: 910",
        "Total Ft Drilled: 599",
        "END DATE: 11/02/2026",
        "END TIME: 05:00:00",
        "",
        // Day 2: records 14400 to 19999: cycles 20-26 whole and 560 drilling
        // records of cycle 27, to the end of the job.
        "START DATE: 11/02/2026",
        "START TIME: 05:00:00",
        // on = 7 x 660 + 560 = 5180 records = 31080 s; off = 86400 - 31080 =
        // 55320 s, the hours with no record counted off bottom.
        "Total Off Bottom Time: 15:22:00",
        "Total On Bottom Time: 08:38:00",
        // 55320 / 86400 = 64.028 %, 31080 / 86400 = 35.972 %.
        "Percentage Off Bottom Time: 64.0%",
        "Percentage Drilling Time: 36.0%",
        // 7 connections: 2520 s. Feet from 1600 (the block's first record; the
        // step from 1599 belongs to neither day): 7 x 29 + 7 + 25 = 235.
        // 2520 / (235 / 30) = 321.70 -> 322 s.
        "Time Per Connection Average: 00:05:22",
        // (5180 x 10 + 420 x 50) / 14400 = 72800 / 14400 = 5.06.
        "Average Gas Units: 5",
        // (4 x 660 x 1 + 3 x 660 x 2 + 560 x 2) / 5180 = 7720 / 5180 = 1.4903;
        // 60 / 1.4903 = 40.259.
        "Average (ON BOTTOM) ROP Min/Ft: 1.49",
        "Average (ON BOTTOM) ROP Ft/Hr: 40.26",
        "Max Gas Units: 50",
        "Total Ft Drilled: 235",
        // The job's last record: 19999 x 6 s = 33:19:54 after the start.
        "END DATE: 11/02/2026",
        "END TIME: 14:19:54",
        "",
        "",
        // Tally: the 11th record off bottom of cycle c is record 720c + 670,
        // at 05:00:00 + 72c min + 67 min; its depth 1029 + 30c. The first row's
        // hour (06) reaches the report hour on a new date: a break before it.
        "",
        "   1,  1029.0,  1029.0, 01/Nov/2026 06:07:00,   <- Start of logging",
        "   2,  1059.0,    30.0, 01/Nov/2026 07:19:00, 01:12:00",
        "   3,  1089.0,    30.0, 01/Nov/2026 08:31:00, 01:12:00",
        "   4,  1119.0,    30.0, 01/Nov/2026 09:43:00, 01:12:00",
        "   5,  1149.0,    30.0, 01/Nov/2026 10:55:00, 01:12:00",
        "   6,  1179.0,    30.0, 01/Nov/2026 12:07:00, 01:12:00",
        "   7,  1209.0,    30.0, 01/Nov/2026 13:19:00, 01:12:00",
        "   8,  1239.0,    30.0, 01/Nov/2026 14:31:00, 01:12:00",
        "   9,  1269.0,    30.0, 01/Nov/2026 15:43:00, 01:12:00",
        "  10,  1299.0,    30.0, 01/Nov/2026 16:55:00, 01:12:00",
        // Cycle 10 reamed: cycle 11 (1359 ft) is 60 ft and 2:24 after cycle 9.
        "  11,  1359.0,    60.0, 01/Nov/2026 19:19:00, 02:24:00  <- Long Connection",
        "  12,  1389.0,    30.0, 01/Nov/2026 20:31:00, 01:12:00",
        "  13,  1419.0,    30.0, 01/Nov/2026 21:43:00, 01:12:00",
        "  14,  1449.0,    30.0, 01/Nov/2026 22:55:00, 01:12:00",
        // After midnight but before 05:00: no break yet.
        "  15,  1479.0,    30.0, 02/Nov/2026 00:07:00, 01:12:00",
        "  16,  1509.0,    30.0, 02/Nov/2026 01:19:00, 01:12:00",
        "  17,  1539.0,    30.0, 02/Nov/2026 02:31:00, 01:12:00",
        "  18,  1569.0,    30.0, 02/Nov/2026 03:43:00, 01:12:00",
        "  19,  1599.0,    30.0, 02/Nov/2026 04:55:00, 01:12:00",
        "",
        "  20,  1629.0,    30.0, 02/Nov/2026 06:07:00, 01:12:00",
        "  21,  1659.0,    30.0, 02/Nov/2026 07:19:00, 01:12:00",
        "  22,  1689.0,    30.0, 02/Nov/2026 08:31:00, 01:12:00",
        "  23,  1719.0,    30.0, 02/Nov/2026 09:43:00, 01:12:00",
        "  24,  1749.0,    30.0, 02/Nov/2026 10:55:00, 01:12:00",
        "  25,  1779.0,    30.0, 02/Nov/2026 12:07:00, 01:12:00",
        "  26,  1809.0,    30.0, 02/Nov/2026 13:19:00, 01:12:00",
    };
    for (int i = 0; i < std::max(got.size(), want.size()); ++i)
        EXPECT_EQ(got.value(i).toStdString(), want.value(i).toStdString()) << "line " << i + 1;

    // The status lines say how far the run got, block by block.
    EXPECT_EQ(status(),
              QStringList({"Removing old report file", "Start of database date: 11/01/2026",
                           "Start of database Time: 05:00:00", "Processed 14399 number of records",
                           "Processed 5599 number of records",
                           "Gathered stats information, generating file", "STATS is completed",
                           "Gathering Tally Information", "DB Scan for Tally complete",
                           "Tally Completed", "Job Done"}));
    // The finished report, read back, is what the box shows.
    EXPECT_EQ(ws.fm_setup.txt_stats_output.text(), want.join("\r\n") + "\r\n");
}

} // namespace
