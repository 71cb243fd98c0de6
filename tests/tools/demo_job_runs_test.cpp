// The demonstration job holds whole chromatograph runs and runs a link drop
// cut short, so the panel has both to show.
#include "program_folder.h"
#include "raw_db.h"

#include <QProcess>
#include <gtest/gtest.h>

TEST(DemoJobRuns, WholeRunsAndRunsCutShortByALinkDrop) {
    struct Case {
        const char* what;
        bool demonstration;  // the job of a program folder, or a plain --out file
        long long shortRuns; // at least this many runs under 40 samples
        long long packetGaps;
    };
    // 3,000 rows: a drop after the 1,000th and the 2,000th.
    const Case cases[] = {{"demonstration job", true, 2, 2}, {"plain job file", false, 0, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        testkit::ProgramFolder folder;
        const QString job =
            c.demonstration ? folder.file("DB_CUE/V11_DEMO.DB") : folder.file("PLAIN.DB");
        QStringList args = {"--rows", "3000"};
        args << (c.demonstration ? QStringList{folder.path()} : QStringList{"--out", job});
        QProcess maker;
        maker.start(QStringLiteral(GASCHART_BINARY_DIR "/make-demo-job"), args);
        ASSERT_TRUE(maker.waitForFinished(120000));
        ASSERT_EQ(maker.exitCode(), 0) << maker.readAllStandardError().toStdString();

        testkit::RawDb raw(job);
        EXPECT_EQ(raw.rows(), 3000);
        // Runs inside the job (not its first and last, which the job's ends cut).
        const QString inner =
            "SELECT CGTESTNUM, count(*) AS n FROM OMBRI_DB_010 GROUP BY CGTESTNUM "
            "HAVING CGTESTNUM > (SELECT min(CGTESTNUM) FROM OMBRI_DB_010) "
            "AND CGTESTNUM < (SELECT max(CGTESTNUM) FROM OMBRI_DB_010)";
        const long long whole = raw.number("SELECT count(*) FROM (" + inner + ") WHERE n = 40");
        const long long cut = raw.number("SELECT count(*) FROM (" + inner + ") WHERE n < 40");
        EXPECT_GT(whole, 3000 / 40 - 8);
        if (c.shortRuns > 0)
            EXPECT_GE(cut, c.shortRuns);
        else
            EXPECT_EQ(cut, 0);
        EXPECT_EQ(
            raw.number("SELECT count(*) FROM OMBRI_DB_010 a WHERE PACKET_NUM > "
                       "(SELECT min(PACKET_NUM) FROM OMBRI_DB_010) AND NOT EXISTS "
                       "(SELECT 1 FROM OMBRI_DB_010 b WHERE b.PACKET_NUM = a.PACKET_NUM - 1)"),
            c.packetGaps);
    }
}
