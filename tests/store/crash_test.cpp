// A writer killed in the middle of its work loses nothing it had committed:
// the demonstration job maker writes row after row, each committed on its
// own and reported once committed, and is killed without warning.
#include "station.h"
#include "text/numbers.h"

#include <QProcess>
#include <gtest/gtest.h>

using storetest::RawDb;

namespace {

struct Reported {
    long packet;
    long id;
    QString gas;
};

} // namespace

TEST(Crash, EveryRowCommittedBeforeAKillIsThereAndTheFileIsWhole) {
    testkit::ProgramFolder folder;
    const QString job = folder.file("KILLED.DB");
    QProcess writer;
    writer.start(QStringLiteral(GASCHART_BINARY_DIR "/make-demo-job"),
                 {"--out", job, "--rows", "1000000", "--report"});
    ASSERT_TRUE(writer.waitForStarted(10000));

    QByteArray out;
    while (out.count('\n') < 120 && writer.waitForReadyRead(20000))
        out += writer.readAllStandardOutput();
    ASSERT_GE(out.count('\n'), 120) << writer.readAllStandardError().toStdString();
    writer.kill(); // SIGKILL: no clean-up of any kind
    ASSERT_TRUE(writer.waitForFinished(10000));
    EXPECT_EQ(writer.exitStatus(), QProcess::CrashExit);
    out += writer.readAllStandardOutput();

    std::vector<Reported> reported;
    for (const QByteArray& line : out.split('\n')) {
        const QList<QByteArray> parts = line.split(' ');
        if (parts.size() != 3) continue; // a line cut by the kill
        reported.push_back({parts[0].toLong(), parts[1].toLong(), QString::fromLatin1(parts[2])});
    }
    ASSERT_GE(reported.size(), 120u);
    // The file has not been closed: its newest commits are in the log alone.
    EXPECT_TRUE(QFile::exists(job + "-wal"));

    RawDb raw(job);
    EXPECT_EQ(raw.integrity(), "ok");
    for (const Reported& r : reported) {
        const QString row = raw.value(
            QString("SELECT ID || ' ' || GAS_UNITS FROM OMBRI_DB_010 WHERE PACKET_NUM = %1")
                .arg(r.packet));
        ASSERT_FALSE(row.isEmpty()) << "packet " << r.packet << " lost";
        EXPECT_EQ(row.section(' ', 0, 0).toLong(), r.id);
        EXPECT_DOUBLE_EQ(row.section(' ', 1).toDouble(), text::Val(r.gas)) << r.packet;
    }
    // At most the one row committed between its commit and its report is
    // there besides; rows run without a gap.
    const long long rows = raw.rows();
    EXPECT_GE(rows, static_cast<long long>(reported.size()));
    EXPECT_LE(rows, static_cast<long long>(reported.size()) + 1);
    EXPECT_EQ(raw.number("SELECT max(PACKET_NUM) - min(PACKET_NUM) + 1 FROM OMBRI_DB_010"), rows);
}
