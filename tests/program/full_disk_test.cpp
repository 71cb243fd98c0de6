// The disk fills up under the running program: the real gaschart binary,
// fed by the simulator, may grow no file past a size the test sets from
// outside (as a full disk would stop it), with the signal that would kill it
// for that ignored. The record writer says so once, the link and the parser
// go on, nothing stored is lost, and rows come in again once there is room.
#include "demo_folder.h"
#include "raw_db.h"
#include "simulator.h"

#include <QFileInfo>
#include <QProcess>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

using testkit::Simulator;

namespace {

constexpr long kFirstPacket = 800000;

std::set<long> Stored(const QString& job) {
    return testkit::RawDb(job, testkit::RawDb::Access::ReadOnly)
        .numbers(QString("SELECT PACKET_NUM FROM OMBRI_DB_010 WHERE PACKET_NUM >= %1")
                     .arg(kFirstPacket));
}

bool LimitFileSize(qint64 pid, rlim_t bytes) {
    const rlimit limit{bytes, RLIM_INFINITY};
    return prlimit(static_cast<pid_t>(pid), RLIMIT_FSIZE, &limit, nullptr) == 0;
}

} // namespace

TEST(ProgramFaults, AFullDiskIsToldOnceTheLinkGoesOnAndRowsComeInAgainWhenThereIsRoom) {
    testkit::ProgramFolder folder;
    const quint16 port = testkit::FreePort();
    const QString job = programtest::MakeDemoFolder(folder, port);
    ASSERT_FALSE(job.isEmpty());
    Simulator sim(folder.file("sim.log"));
    ASSERT_TRUE(sim.start({"--tcp", QString::number(port), "--interval", "0.5", "--first-packet",
                           QString::number(kFirstPacket)}));
    const QString pictures = folder.file("pictures");
    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    program.setProcessEnvironment(env);
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    // Past the limit a write fails with an error instead of ending the
    // program, as on a disk that is full.
    program.setChildProcessModifier([] { std::signal(SIGXFSZ, SIG_IGN); });
    program.start(folder.file("gaschart"), {"--pictures", pictures});
    ASSERT_TRUE(program.waitForStarted(10000));
    struct Stop {
        QProcess& p;
        ~Stop() {
            p.terminate();
            if (!p.waitForFinished(30000)) p.kill();
        }
    } stop{program};

    // Rows coming in, and the job's log grown enough that the last of the
    // screen's words fit under the limit set at its size.
    const QString wal = job + "-wal";
    ASSERT_TRUE(testkit::PumpUntil(
        90000, [&] { return Stored(job).size() >= 5 && QFileInfo(wal).size() >= 256 * 1024; }))
        << "stored " << Stored(job).size() << ", log " << QFileInfo(wal).size();
    ASSERT_TRUE(LimitFileSize(program.processId(), QFileInfo(wal).size()));

    const auto writeErrors = [&] { return folder.read("ERR_LOG.TXT").count("DB Write Err: "); };
    ASSERT_TRUE(testkit::PumpUntil(20000, [&] { return writeErrors() >= 1; }))
        << "the writer never failed";
    const std::set<long> before = Stored(job);
    const int lagLines = sim.count("LAGDEPTH");
    // Ten packets or so with no room.
    testkit::Pump(6000);
    EXPECT_EQ(writeErrors(), 1) << folder.read("ERR_LOG.TXT").toStdString();
    EXPECT_EQ(Stored(job), before);
    QMap<QString, QString> words = programtest::ScreenWords(pictures + "/screens.txt");
    EXPECT_EQ(words.value("fm_Gas_Chart.txt_message").count("DB Write Err: "), 1)
        << words.value("fm_Gas_Chart.txt_message").toStdString();
    // The parser goes on showing the packets and answering them.
    EXPECT_GT(words.value("more_data.lbl_packetnum").toLong(), *before.rbegin() + 3);
    EXPECT_TRUE(words.value("fm_Gas_Chart.cmd_comm1").startsWith("Connected"))
        << words.value("fm_Gas_Chart.cmd_comm1").toStdString();
    EXPECT_GE(sim.count("LAGDEPTH"), lagLines + 2);

    // Room again: the next packets are stored, nothing before is lost.
    ASSERT_TRUE(LimitFileSize(program.processId(), RLIM_INFINITY));
    EXPECT_TRUE(testkit::PumpUntil(20000, [&] { return Stored(job).size() >= before.size() + 3; }))
        << "storing did not resume";
    EXPECT_EQ(writeErrors(), 1);
    program.terminate();
    ASSERT_TRUE(program.waitForFinished(30000));
    const std::set<long> after = Stored(job);
    for (long p : before) EXPECT_TRUE(after.count(p)) << "packet " << p << " lost";
    EXPECT_EQ(testkit::RawDb(job, testkit::RawDb::Access::ReadOnly).integrity(), "ok");
}
