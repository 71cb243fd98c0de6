// The rig data recorder simulator on one end of a socat pair, the
// workstation on the other.
#include "wits_fixture.h"

#include "acquisition/parser.h"
#include "raw_db.h"
#include "simulator.h"
#include "text/numbers.h"
#include "tools/common/drilling_model.h"

using witstest::WitsTest;

namespace {

class EndToEnd : public WitsTest {
  protected:
    EndToEnd() : WitsTest("WITS.DB") {
        ws.loop.Gstarting_up = false;
        for (const char* t :
             {"tmr_WITSDataArrival", "tmr_Serial_WITS", "tmr_Send_WITS", "tmr_ROP_Timer"})
            ws.timer(t)->start();
    }
    // The simulator on the far end of a fresh pair, the near end placed as
    // the workstation's port 2, and the search run.
    void connect(const QStringList& args) {
        pairOn(2, false);
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
    std::unique_ptr<testkit::Simulator> sim;
};

TEST_F(EndToEnd, TheRecorderStreamsAndGetsOneFramePerStoredPacket) {
    connect({"--rate", "2", "--start-depth", "5000"});

    // The stream's values reach the slots and the bit depth label.
    ASSERT_TRUE(testkit::PumpUntil(3000, [&] { return slot(1) >= 5000; }));
    EXPECT_GE(slot(0), 4000);
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), text::Format(slot(0), u"0.0"));

    // Instrument packets, one every 1.2 seconds so each frame goes out
    // before the next is made.
    drill::Options opt;
    opt.start = QDateTime(QDate(2024, 3, 5), QTime(14, 0, 0));
    opt.startDepth = 5000;
    drill::Model model(opt);
    const int packets = 6;
    for (int i = 0; i < packets; ++i) {
        ws.packet.Gline_buffer = drill::Model::PacketLine(model.next());
        acq::Parse_Ombri_String(ws);
        testkit::Pump(1200);
    }
    testkit::Pump(500);
    sim->stop();

    const QStringList frames = recorded();
    ASSERT_EQ(frames.size(), packets) << frames.join("\n");
    const QStringList gas = column("GAS_UNITS").split('|');
    ASSERT_EQ(gas.size(), packets);
    for (int i = 0; i < packets; ++i) {
        SCOPED_TRACE(frames[i]);
        const QStringList items = frames[i].section(' ', 2).split(';');
        EXPECT_EQ(items.size(), 12);
        EXPECT_TRUE(items.contains("0140=" + text::Format(gas[i].toDouble(), u"0.0")));
    }
}

} // namespace
