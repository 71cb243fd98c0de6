// The daily statistics: the records in packet order, cut into days at the
// report hour, each day's counters written as one block of figures.
#include "stats/day_block.h"
#include "stats/report_file.h"
#include "stats/report_writers.h"
#include "stats/statistics.h"
#include "stats/stats_data.h"
#include "workstation/workstation.h"

namespace stats {

namespace {

// Fewer records than a day and a little: no day to report.
constexpr int32_t kFewestRecords = 14450;
// A block ends by this count even if no new day has come (a job whose
// packets come faster than one in six seconds).
constexpr int32_t kLongestBlock = 14500;

QString Text(const StatsData& d, int col) {
    return d.rs.Fields(col).toText();
}

void DailyStats(Workstation& ws, ReportFile& file, StatsData& d, int& pt) {
    pt = 1;
    if (!Open_Stats_Database(ws, d)) {
        Stats_Status(ws, "Unable to open data base");
        return;
    }
    pt = 2;
    if (d.rs.RecordCount() < kFewestRecords) {
        Stats_Status(ws, "Not enough data to generate stats");
        Close_Stats_Database(d);
        return;
    }
    pt = 3;
    d.rs.MoveFirst();
    QString date = Text(d, d.date);
    QString time = Text(d, d.time);
    Stats_Status(ws, "Start of database date: " + date);
    Stats_Status(ws, "Start of database Time: " + time);
    file.lines({QString(), "Start of database date (YYYY/MM/DD): " + date,
                "Start of database time (24H format): " + time, QString()});

    pt = 4;
    // The hour's two digits: a block ends at the first record of a new date
    // whose time starts with them.
    const QString reportHour = ws.fm_setup.cmb_Report_Time.text().left(2);
    StatsTurns turns(ws, d, 0, 50);
    DayScan scan;
    auto& rs = d.rs;
    while (!rs.Eof()) {
        pt = 5;
        scan.startBlock(rs.Fields(d.depth));
        const QString blockDate = date;
        QString block = "START DATE: " + date + "\r\n" + "START TIME: " + time + "\r\n";
        int32_t n = 0;
        pt = 6;
        while (n <= kLongestBlock) {
            turns.turn();
            scan.take(
                rs.Fields(d.depth), rs.Fields(d.bit), [&] { return rs.Fields(d.minFt).toDouble(); },
                rs.Fields(d.gas));
            rs.MoveNext();
            if (rs.Eof()) {
                rs.MovePrevious();
                date = Text(d, d.date);
                time = Text(d, d.time);
                rs.MoveNext();
                break;
            }
            if (Text(d, d.date) != blockDate && Text(d, d.time).left(2) == reportHour) break;
            ++n;
        }
        pt = 7;
        // The record reached ends this block and starts the next.
        if (!rs.Eof()) {
            date = Text(d, d.date);
            time = Text(d, d.time);
        }
        Stats_Status(ws, "Processed " + QString::number(n) + " number of records");
        file.text(block + scan.figures(date, time));
        file.line(QString());
    }
    pt = 8;
    Close_Stats_Database(d);
    Stats_Status(ws, "Gathered stats information, generating file");
    Stats_Status(ws, "STATS is completed");
}

} // namespace

void Write_Daily_Stats(Workstation& ws, ReportFile& file) {
    RunStatsPart(ws,
                 "Daily Stats Err: ", [&](StatsData& d, int& pt) { DailyStats(ws, file, d, pt); });
}

} // namespace stats
