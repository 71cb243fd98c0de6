// The demonstration job through the batch exporter, read by independent readers.
#include "products_fixture.h"
#include "stats/statistics.h"

#include <QElapsedTimer>
#include <QProcess>

using productstest::ProductsTest;

namespace {

const QString kBin = QStringLiteral(GASCHART_BINARY_DIR);
const QString kHere = QStringLiteral(GASCHART_SOURCE_DIR "/tests/products");

struct Outcome {
    int code = -1;
    QString out;
};

// A program that has not finished in `ms` is killed as `p` goes.
Outcome Exec(const QString& program, const QStringList& args, int ms = 120000) {
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    const bool ended = p.waitForFinished(ms) && p.exitStatus() == QProcess::NormalExit;
    return {ended ? p.exitCode() : -1, QString::fromLocal8Bit(p.readAll())};
}

Outcome Export(const QStringList& args) {
    return Exec(kBin + "/gaschart-export", args);
}

} // namespace

class DemoFiles : public ProductsTest {
  protected:
    QString demo = folder.file("V11_DEMO.DB");
    DemoFiles() {
        QFile::copy(kBin + "/DB_CUE/V11_DEMO.DB", demo);
        // The full LAS header, so a LAS reader finds the curves.
        QFile cfg(folder.file("OM_10_config.txt"));
        cfg.open(QIODevice::WriteOnly);
        cfg.write("[GEN LAS VER1 ON]\r\n[GEN XLS HEADER ON]\r\n");
    }
};

TEST_F(DemoFiles, EveryWriterGivesFilesThatOpen) {
    ASSERT_TRUE(QFile::exists(demo)) << "the build makes the demonstration job";
    const Outcome r =
        Export({demo, "--las", outFile("demo.las"), "--time-las", outFile("demo_TIME.LAS"), "--xls",
                outFile("demo.XLS"), "--omd", outFile("demo.OMD"), "--csv", outFile("demo.CSV")});
    ASSERT_EQ(r.code, 0) << r.out.toStdString();
    EXPECT_TRUE(r.out.contains("demo.OMD: 28800 records")) << r.out.toStdString();

    const struct {
        QStringList args;
        const char* says;
    } tables[] = {
        {{outFile("demo.CSV")}, "demo.CSV rows 28801 columns 43"},
        {{"--delimiter", "\\t", outFile("demo_TIME.LAS")}, "rows 28801 columns 22"},
        {{"--delimiter", "\\t", "--after-blank", outFile("demo.XLS")}, "columns 23"},
    };
    for (const auto& t : tables) {
        const Outcome cols = Exec("python3", QStringList{kHere + "/check_columns.py"} + t.args);
        EXPECT_EQ(cols.code, 0) << cols.out.toStdString();
        EXPECT_TRUE(cols.out.contains(t.says)) << cols.out.toStdString();
    }

    const Outcome las = Exec(
        "sh", {kHere + "/check_las.sh", outFile("demo.las"), outFile("demo_GasOnly.las")}, 300000);
    if (las.code == 3) GTEST_SKIP() << "las-js unavailable";
    EXPECT_EQ(las.code, 0) << las.out.toStdString();
    EXPECT_TRUE(las.out.contains(" widths 22\n")) << las.out.toStdString();
    EXPECT_TRUE(las.out.contains("demo_GasOnly.las curves 2 rows ")) << las.out.toStdString();
}

TEST_F(DemoFiles, TheExporterSaysWhatFailed) {
    testkit::RawDb(folder.file("foreign.db")).exec("CREATE TABLE t (x)");
    QFile notDb(folder.file("text.db"));
    notDb.open(QIODevice::WriteOnly);
    notDb.write("not a data base at all, just words in a file of its own");
    notDb.close();
    struct Case {
        QStringList args;
        int code;
        const char* says;
    } cases[] = {
        {{}, 2, "give one job file"},
        {{demo}, 2, "nothing to do"},
        {{folder.file("none.db"), "--las", outFile("x.las")}, 3, "Could not find the file"},
        {{folder.file("text.db"), "--las", outFile("x.las")}, 3, "not a data base"},
        {{folder.file("foreign.db"), "--las", outFile("x.las")}, 3, "is not a job file"},
        {{demo, "--las", folder.file("gone/x.las")}, 5, "Create Las Filename Err: Path not found"},
        {{demo, "--import-omd", folder.file("none.OMD")}, 6, "Import File Err: File not found"},
        {{demo, "--config", folder.file("none.txt"), "--las", outFile("x.las")},
         2,
         "Could not read the settings file"},
    };
    for (const Case& c : cases) {
        const Outcome r = Export(c.args);
        EXPECT_EQ(r.code, c.code) << c.args.join(' ').toStdString() << "\n" << r.out.toStdString();
        EXPECT_TRUE(r.out.contains(c.says)) << r.out.toStdString();
    }
    EXPECT_FALSE(exists("x.las"));
    // The import through the exporter: the job's own records come back as
    // duplicates.
    ASSERT_EQ(Export({demo, "--omd", outFile("d.OMD")}).code, 0);
    const Outcome again = Export({demo, "--import-omd", outFile("d.OMD")});
    EXPECT_EQ(again.code, 0);
    EXPECT_TRUE(again.out.contains("read 28800, added 0, skipped 28800, refused 0"))
        << again.out.toStdString();
}

TEST_F(DemoFiles, AKilledRunLeavesThePreviousFileWhole) {
    // Each try kills the writer at another moment; whatever the moment, the
    // file under the real name is the old one or the whole new one.
    const Outcome whole = Export({demo, "--time-las", outFile("new.LAS")});
    ASSERT_EQ(whole.code, 0);
    const QByteArray complete = bytes("new.LAS");
    ASSERT_GT(complete.size(), 1000000);
    for (int ms : {60, 150, 300, 600}) {
        QFile old(outFile("t.LAS"));
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("the previous file\r\n");
        old.close();
        QProcess p;
        p.start(kBin + "/gaschart-export", {demo, "--time-las", outFile("t.LAS")});
        ASSERT_TRUE(p.waitForStarted());
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < ms && p.state() == QProcess::Running) p.waitForFinished(10);
        p.kill(); // SIGKILL: no clean-up of any kind
        p.waitForFinished();
        const QByteArray now = bytes("t.LAS");
        EXPECT_TRUE(now == "the previous file\r\n" || now == complete)
            << ms << " ms: " << now.size() << " bytes";
    }
}

TEST_F(DemoFiles, TheExporterWritesTheStatisticsReportOfTheWorkstation) {
    ASSERT_TRUE(QFile::exists(demo)) << "the build makes the demonstration job";
    const Outcome r = Export({demo, "--stats", outFile("TALLY.TXT")});
    ASSERT_EQ(r.code, 0) << r.out.toStdString();
    // The same report as the workstation's own run over the same job.
    ws.fm_Gas_Chart.txt_db_path.setText(demo);
    ws.fm_setup.txt_stats_filename.setText(outFile("OWN.TXT"));
    stats::Generate_Stats_Report(ws);
    // All but the line that says when each was made.
    const auto made = [this](const QString& name) {
        QList<QByteArray> l = lines(name);
        l.removeIf([](const QByteArray& x) { return x.startsWith("Date of report generated"); });
        return l;
    };
    const auto exported = made("TALLY.TXT");
    ASSERT_GT(exported.size(), 20);
    EXPECT_EQ(exported, made("OWN.TXT"));

    // A report that can't be written fails with its reason.
    const Outcome bad = Export({demo, "--stats", "/proc/self/no/TALLY.TXT"});
    EXPECT_EQ(bad.code, 5) << bad.out.toStdString();
    EXPECT_FALSE(bad.out.trimmed().isEmpty());
}
