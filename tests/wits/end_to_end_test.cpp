// The rig data recorder simulator on one end of a socat pair, the
// workstation on the other: the workstation finds it, shows its values,
// sends a frame of gas results back per instrument packet, and what the
// simulator recorded matches what the job stored, frame by frame.
#include "wits_fixture.h"

#include "acquisition/parser.h"
#include "acquisition/supervision.h"
#include "db/schema.h"
#include "pty_pair.h"
#include "raw_db.h"
#include "simulator.h"
#include "text/numbers.h"
#include "tools/common/drilling_model.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using witstest::WitsTest;

namespace {

class EndToEnd : public WitsTest {
  protected:
    EndToEnd() {
        QDir().mkpath(folder.file("DB_CUE"));
        job = folder.file("DB_CUE/WITS.DB");
        db::MakeBlankJob(job, db::kRecordTable);
        ws.fm_Gas_Chart.txt_db_path.setText(job);
        ws.loop.Gstarting_up = false;
        ws.ports.setScanDevices(false);
        for (const char* t :
             {"tmr_WITSDataArrival", "tmr_Serial_WITS", "tmr_Send_WITS", "tmr_ROP_Timer"})
            ws.timer(t)->start();
    }
    ~EndToEnd() override {
        ws.closing = true;
        ws.StopTimers();
        ws.MSComm2.SetPortOpen(false);
    }
    // The simulator on the far end of a fresh pair, the near end placed as
    // the workstation's port 2, and the search run.
    void connect(const QStringList& args) {
        ASSERT_TRUE(pair.start()) << "socat gave no port pair";
        ws.ports.place(2, pair.workstationEnd());
        sim = std::make_unique<testkit::Simulator>(folder.file("edr.log"), testkit::EdrSimPath());
        ASSERT_TRUE(sim->start(
            QStringList{"--serial", pair.farEnd(), "--record", folder.file("record.txt")} + args))
            << "edr-sim did not start";
        ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
        wits::ck_Use_Local_WITS_Click(ws);
        ASSERT_EQ(ws.fm_WITS.cmd_Search_For_WITS.caption(), "WITS CONNECTED ON SERIAL PORT: 2");
    }
    QStringList recorded() const {
        QStringList out;
        for (const QString& l : folder.read("record.txt").split('\n'))
            if (l.startsWith("FRAME ")) out << l;
        return out;
    }
    QString column(const QString& name) {
        return testkit::RawDb(job, testkit::RawDb::Access::ReadOnly)
            .value("SELECT group_concat(" + name + ", '|') FROM (SELECT " + name +
                   " FROM OMBRI_DB_010 ORDER BY PACKET_NUM)");
    }
    QString job;
    testkit::PtyPair pair;
    std::unique_ptr<testkit::Simulator> sim;
};

TEST_F(EndToEnd, TheRecorderStreamsAndGetsOneFramePerStoredPacket) {
    connect({"--rate", "2", "--start-depth", "5000"});
    EXPECT_GE(sim->count("PROBE"), 1);

    // The stream's values reach the slots, the list and the labels.
    ASSERT_TRUE(testkit::PumpUntil(3000, [&] { return slot(1) >= 5000; }));
    EXPECT_GE(slot(0), 4000);
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), text::Format(slot(0), u"0.0"));
    EXPECT_TRUE(list().filter(QRegularExpression("^0110  Depth Hole")).size() == 1)
        << list().join(" | ");
    EXPECT_TRUE(list().filter(QRegularExpression("^0823  ")).size() == 1);

    // Instrument packets, one every 1.2 seconds so each frame goes out
    // before the next is made.
    drill::Options opt;
    opt.start = QDateTime(QDate(2024, 3, 5), QTime(14, 0, 0));
    opt.startDepth = 5000;
    drill::Model model(opt);
    struct Made {
        double depth, minFt, ftHr, gamma, inclination;
    };
    std::vector<Made> made;
    const int packets = 6;
    for (int i = 0; i < packets; ++i) {
        ws.packet.Gline_buffer = drill::Model::PacketLine(model.next());
        acq::Parse_Ombri_String(ws);
        made.push_back({slot(1), ws.wits.WITS_min_ft, ws.wits.WITS_ft_hr, slot(21), slot(15)});
        testkit::Pump(1200);
    }
    testkit::Pump(500);
    sim->stop();

    const QStringList frames = recorded();
    ASSERT_EQ(frames.size(), packets) << frames.join("\n");
    const QStringList gas = column("GAS_UNITS").split('|');
    const QStringList c1 = column("C1").split('|');
    const QStringList h2s = column("H2S").split('|');
    const QStringList depth = column("DEPTH_RAW").split('|');
    const QStringList minFt = column("MIN_FT").split('|');
    const QStringList ftHr = column("FT_HR").split('|');
    // The chart's assignable WITS columns come from the same slots.
    const QStringList gamma = column("GAMMA").split('|');
    const QStringList inclination = column("INCLINATION").split('|');
    ASSERT_EQ(gas.size(), packets);
    for (int i = 0; i < packets; ++i) {
        SCOPED_TRACE(frames[i]);
        const QStringList items = frames[i].section(' ', 2).split(';');
        auto item = [&](const char* code) {
            for (const QString& it : items)
                if (it.startsWith(QLatin1String(code) + "=")) return it.mid(5);
            return QString("missing");
        };
        EXPECT_EQ(items.size(), 12);
        EXPECT_EQ(item("0140"), text::Format(gas[i].toDouble(), u"0.0"));
        EXPECT_EQ(item("1212"), text::Format(c1[i].toDouble(), u"0.0"));
        EXPECT_EQ(item("1826"), text::Format(h2s[i].toDouble(), u"0.0"));
        // The row took its depth and rates from the local stream.
        EXPECT_DOUBLE_EQ(std::abs(depth[i].toDouble()), made[size_t(i)].depth);
        EXPECT_DOUBLE_EQ(minFt[i].toDouble(), made[size_t(i)].minFt);
        EXPECT_DOUBLE_EQ(ftHr[i].toDouble(), made[size_t(i)].ftHr);
        EXPECT_DOUBLE_EQ(gamma[i].toDouble(), made[size_t(i)].gamma);
        EXPECT_DOUBLE_EQ(inclination[i].toDouble(), made[size_t(i)].inclination);
        EXPECT_GT(made[size_t(i)].gamma, 0);
    }
    EXPECT_EQ(ws.wits.counts.framesSent, packets);
}

TEST_F(EndToEnd, NoiseDroppedFramesAndAHugeLineAreCountedAndTheStreamGoesOn) {
    connect({"--rate", "20", "--garbage", "--drop-every", "3", "--long-line-at", "20"});
    testkit::Pump(3000);
    ASSERT_GE(sim->count("LONGLINE"), 1);
    EXPECT_GE(sim->count("DROPPED"), 10);
    EXPECT_GE(sim->count("GARBAGE"), 20);
    // Still up, still reading, and what was wrong was counted.
    const double hole = slot(1);
    EXPECT_GT(hole, 4000);
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_GT(ws.wits.counts.linesSkipped, 20);
    EXPECT_GT(ws.wits.counts.framesRead, 20);
    EXPECT_LE(ws.fm_WITS.txt_Raw_WITS_In.text().size(), wits::kRawViewHigh);
    EXPECT_LE(ws.wits.WITS_in_buffer.size(), wits::kInBufferLimit);
    // The far end goes away: the port is closed and counted, no crash.
    sim->stop();
    pair.stop();
    EXPECT_TRUE(testkit::PumpUntil(3000, [&] { return !ws.MSComm2.PortOpen(); }));
    EXPECT_EQ(ws.wits.counts.portLosses, 1);
}

TEST_F(EndToEnd, ASilentSpellRunsTheHealthCountDownAndTheStreamComesBack) {
    connect({"--rate", "5", "--silent-at", "1", "--silent-for", "3"});
    // The supervision's second, by hand: the count falls while nothing comes.
    int lowest = 60;
    for (int s = 0; s < 6; ++s) {
        testkit::Pump(1000);
        acq::SuperviseWits(ws);
        lowest = std::min(lowest, ws.wits.Gwits_alive);
    }
    EXPECT_EQ(sim->count("SILENT"), 1);
    EXPECT_EQ(sim->count("TALKING"), 1);
    EXPECT_LE(lowest, 58);
    EXPECT_TRUE(testkit::PumpUntil(1000, [&] { return ws.wits.Gwits_alive == 60; }));
    EXPECT_EQ(ws.fm_WITS.cmd_Search_For_WITS.backColor(), forms::color::Green);
}

} // namespace
