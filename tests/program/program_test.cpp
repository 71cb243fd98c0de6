// The real program, started as the README starts it: the gaschart binary in
// a program folder of its own with the demonstration job, fed by the
// instrument simulator over TCP. It is watched from outside, through the
// pictures and words it saves of its screens and through its job file, and
// stopped as the system stops it at shut-down.
#include "demo_folder.h"
#include "raw_db.h"
#include "simulator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <QProcess>
#include <QSet>
#include <gtest/gtest.h>

using testkit::Simulator;

namespace {

constexpr long kFirstPacket = 700000;

const char* const kPictures[] = {
    "fm_Gas_Chart",      "more_data",        "fm_help",
    "fm_WITS",           "fm_secure",        "fm_setup_0_Chart",
    "fm_setup_1_Alarms", "fm_setup_2_Files", "fm_setup_3_Kettlewick",
    "fm_setup_4_Lag",    "fm_setup_5_WITS",  "fm_setup_6_Statistics",
};

// Packet numbers from the simulator stored in the job, read as another
// program would read them while the workstation writes.
std::set<long> StoredFromSimulator(const QString& job) {
    return testkit::RawDb(job, testkit::RawDb::Access::ReadOnly)
        .numbers(QString("SELECT PACKET_NUM FROM OMBRI_DB_010 WHERE PACKET_NUM >= %1")
                     .arg(kFirstPacket));
}

// A picture of a screen, not an empty window: more than a handful of
// colours in it.
int Colours(const QImage& image) {
    QSet<QRgb> seen;
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3) seen.insert(image.pixel(x, y));
    return static_cast<int>(seen.size());
}

} // namespace

TEST(Program, RunsOnTheDemoJobWithTheSimulatorShowsLiveFieldsAndClosesCleanlyWhenStopped) {
    testkit::ProgramFolder folder;
    const quint16 port = testkit::FreePort();
    // Settings of a first run, as the README's run command writes them.
    const QString job = programtest::MakeDemoFolder(
        folder, port,
        "[GAS UNITS ON] \r\n[C VALUES ON] \r\n[C1 ON] \r\n[C2 ON] \r\n[C3 ON] \r\n"
        "[PEAK ON] \r\n[GEO ON] \r\n[ROP ON] \r\n[SHOW PUMPS ON] \r\n[SHOW OFF BOTTOM ON] \r\n");
    ASSERT_FALSE(job.isEmpty()) << "the demonstration job was not made by the build";
    Simulator sim(folder.file("sim.log"));
    ASSERT_TRUE(
        sim.start({"--tcp", QString::number(port), "--interval", "1", "--first-packet",
                   QString::number(kFirstPacket), "--start-depth", "7040", "--relay-wits"}));

    // The screen of a logging unit's laptop, without a display.
    QFile screen(folder.file("screen.json"));
    ASSERT_TRUE(screen.open(QIODevice::WriteOnly));
    screen.write(R"({"screens":[{"name":"unit","x":0,"y":0,"width":1366,"height":768,)"
                 R"("logicalDpi":96}]})");
    screen.close();
    const QString pictures = folder.file("pictures");
    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName());
    program.setProcessEnvironment(env);
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(folder.file("gaschart"), {"--pictures", pictures});
    ASSERT_TRUE(program.waitForStarted(10000));

    // Live fields: the viewer shows the simulator's packets, the link button
    // says connected, the message box has its start-up lines.
    QMap<QString, QString> words;
    const bool live = testkit::PumpUntil(90000, [&] {
        words = programtest::ScreenWords(pictures + "/screens.txt");
        return words.value("more_data.lbl_packetnum").toLong() > kFirstPacket &&
               words.value("fm_Gas_Chart.cmd_comm1").startsWith("Connected:") &&
               StoredFromSimulator(job).size() >= 3;
    });
    ASSERT_TRUE(live) << "viewer packet " << words.value("more_data.lbl_packetnum").toStdString()
                      << ", link \"" << words.value("fm_Gas_Chart.cmd_comm1").toStdString()
                      << "\", stored " << StoredFromSimulator(job).size();
    const QString message = words.value("fm_Gas_Chart.txt_message");
    EXPECT_TRUE(message.contains("Use database version OMBRI_DB_010")) << message.toStdString();
    EXPECT_TRUE(message.contains("Software Version: ")) << message.toStdString();
    EXPECT_FALSE(words.value("more_data.lbl_DrillDepth").isEmpty());
    EXPECT_EQ(words.value("more_data.lbl_err_desc"), "No Errors");

    // Every screen pictured, kept beside the build for a person to look at.
    testkit::Pump(2500);
    const QString kept = QStringLiteral(GASCHART_BINARY_DIR "/program-shots");
    QDir().mkpath(kept);
    for (const char* name : kPictures) {
        const QString file = pictures + "/" + name + ".png";
        const QImage image(file);
        ASSERT_FALSE(image.isNull()) << name;
        EXPECT_GT(Colours(image), 8) << name << " looks empty";
        QFile::remove(kept + "/" + name + ".png");
        QFile::copy(file, kept + "/" + name + ".png");
    }
    EXPECT_GE(QImage(pictures + "/fm_Gas_Chart.png").width(), 1000) << "not the whole screen";

    // The stop of a shut-down: no question, the job closed as by an exit.
    const std::set<long> sent = sim.sent();
    testkit::Pump(2500);
    program.terminate();
    ASSERT_TRUE(program.waitForFinished(30000)) << "the program did not stop";
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    sim.stop();
    EXPECT_FALSE(QFileInfo::exists(job + "-wal")) << "the job was not closed";
    EXPECT_EQ(testkit::RawDb(job, testkit::RawDb::Access::ReadOnly).integrity(), "ok");
    const std::set<long> stored = StoredFromSimulator(job);
    for (long p : sent)
        if (!stored.count(p)) ADD_FAILURE() << "packet " << p << " was sent but not stored";
    // Its settings were saved on the way out, the link among them.
    const QString config = folder.read("OM_10_config.txt");
    EXPECT_TRUE(config.contains("[TCP PORT] " + QString::number(port))) << config.toStdString();
    EXPECT_GT(config.count('\n'), 50);
}
