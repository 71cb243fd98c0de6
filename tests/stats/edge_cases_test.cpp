// The report on jobs that give it little to go on, and where it can't write.
#include "file_bytes.h"
#include "stats_fixture.h"

#include <QFile>
#include <QTimer>

namespace {

using namespace statstest;

// Cycles of 100 records: 80 drilling, a foot every third record, then 20 off
// bottom; each cycle's stay off bottom is one tally entry.
std::vector<Rec> Cycles(int records) {
    std::vector<Rec> rows;
    for (int i = 0; i < records; ++i) {
        const int c = i / 100, j = i % 100;
        const double base = 1000 + 30 * c;
        rows.push_back(j < 80 ? On(base + j / 3) : Off(base + 26));
    }
    return rows;
}

TEST(EdgeCases, AJobShorterThanADayHasATallyButNoDays) {
    // Both hold 144 whole cycles; only the longer reaches the day's end.
    for (const int records : {14449, 14450}) {
        SCOPED_TRACE(records);
        Job job;
        job.add(Cycles(records));
        const QStringList r = job.run();
        const bool days = records == 14450;
        EXPECT_EQ(r.contains("START DATE: 11/01/2026"), days);
        EXPECT_EQ(job.status().contains("Not enough data to generate stats"), !days);
        EXPECT_EQ(Job::tally(r).size(), 144);
    }
}

TEST(EdgeCases, NoBitDepthMeansNoWitsAndAReportOfTwoLines) {
    struct Case {
        const char* what;
        int records;
        std::optional<double> fourthBit; // the bit depth of the fourth record
        bool report;                     // statistics and tally written
    };
    const Case cases[] = {
        // Only the fourth record is looked at, by its size.
        {"no bit depth in the fourth record", 20000, std::nullopt, false},
        {"a negative bit depth", 20000, -1020.0, true},
        {"five records", 5, 1020.0, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Job job;
        std::vector<Rec> rows = Cycles(c.records);
        rows[3].bit = c.fourthBit;
        job.add(rows);
        const QStringList r = job.run();
        ASSERT_GE(r.size(), 6);
        EXPECT_EQ(r[3], "Database used: " + job.path);
        if (c.report) {
            EXPECT_TRUE(r.contains("START DATE: 11/01/2026"));
            EXPECT_EQ(Job::tally(r).size(), 200);
        } else {
            EXPECT_EQ(r.mid(5),
                      QStringList({"", "Database does not contain enough WITS information",
                                   "Unable to generate reports", ""}));
        }
        EXPECT_EQ(job.status().contains("Not enough data to build a chart"), c.records < 6);
    }
}

TEST_F(StatsJob, TheNewReportTakesThePlaceOfTheOldOnlyWhenWhole) {
    add(Cycles(15000));
    {
        QFile old(report);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("an old report\r\n");
    }
    // Whoever reads the report during the run finds the old one whole.
    QStringList seen;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] { seen << lines(report).join("|"); });
    look.start(0);
    const QStringList r = run();
    look.stop();
    EXPECT_EQ(r.value(3), "Database used: " + path);
    ASSERT_FALSE(seen.isEmpty());
    seen.removeDuplicates();
    EXPECT_EQ(seen, QStringList({"an old report"})) << "the report was seen half written";
    const QStringList files = QDir(folder.file("DB_CUE")).entryList(QDir::Files);
    EXPECT_EQ(files, QStringList({"AUTOTALLY.TXT", "JOB.db"})) << "nothing is left beside it";

    // A report folder that can't be written (the job file stands in its
    // place, so not even root writes there) is said, and the job untouched.
    const QByteArray before = testkit::FileDigest(path);
    const QString name = path + "/AUTOTALLY.TXT";
    ws.fm_setup.txt_stats_filename.setText(name);
    ws.fm_setup.txt_stats_output.setText("");
    stats::Generate_Stats_Report(ws);
    EXPECT_EQ(ws.fm_setup.txt_stats_output.text(), "Error in opening file: " + name + "\r\n");
    EXPECT_EQ(testkit::FileDigest(path), before);
    EXPECT_EQ(QDir(folder.file("DB_CUE")).entryList(QDir::Files), files);
    EXPECT_FALSE(ws.stats.running);
}

TEST(EdgeCases, ARecordThatCantBeReadEndsItsPartOfTheReportWithItsOwnError) {
    struct Case {
        const char* what;
        const char* spoil;
        const char* logged; // the error log's one line, or none
        bool secondDay;     // the day of 11/02 written
        int tallyLines;
    };
    // Cycles of 100 records: record 14410 (packet 14411) drills on 11/02,
    // record 14490 is the 11th off bottom of its cycle, a tally entry.
    const Case cases[] = {
        // A rate is read on bottom only: the days stop, the tally is whole.
        {"no rate on bottom", "MIN_FT = NULL WHERE PACKET_NUM = 14411",
         "Daily Stats Err: Invalid use of Null Err pt: 6", false, 150},
        // The time is read only for a connection.
        {"no time at a connection", "DT = NULL WHERE PACKET_NUM = 14491", "Tally Err: ", true, 0},
        {"no time elsewhere", "DT = NULL WHERE PACKET_NUM = 14411", nullptr, true, 150},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Job job;
        job.add(Cycles(15000));
        db::OpenDatabase(job.path).Execute(QString("UPDATE OMBRI_DB_010 SET ") + c.spoil);
        const QStringList r = job.run();
        const QStringList log = job.folder.read("ERR_LOG.TXT").split("\r\n", Qt::SkipEmptyParts);
        ASSERT_EQ(log.size(), c.logged ? 1 : 0) << log.join("|").toStdString();
        if (c.logged) {
            EXPECT_TRUE(log[0].contains(c.logged)) << log[0].toStdString();
        }
        EXPECT_TRUE(r.contains("START DATE: 11/01/2026"));
        EXPECT_EQ(r.contains("START DATE: 11/02/2026"), c.secondDay);
        EXPECT_EQ(Job::tally(r).size(), c.tallyLines);
        EXPECT_EQ(job.status().last(), "Job Done");
    }
}

} // namespace
