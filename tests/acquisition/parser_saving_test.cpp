// When a packet becomes a row of a real job file: at the "*" line, or at the
// "^" block behind it when WITS comes relayed by the instrument.
#include "acq_fixture.h"
#include "raw_db.h"

using acqtest::AcqTest;
using acqtest::Packet;

namespace {

class ParserSaving : public AcqTest {
  protected:
    ParserSaving() : AcqTest("JOB.DB") {}
    // Packet n at 06:00:00 plus six seconds a packet, at depth 1000 + n.
    static QString Numbered(int n, const QString& alarm = "0 ") {
        const QTime t = QTime(6, 0, 0).addSecs(6 * n);
        return Packet({{0, "KW9"},
                       {1, "11/01/2026"},
                       {2, t.toString("HH:mm:ss")},
                       {3, QString::number(1000 + n)},
                       {20, alarm},
                       {28, QString::number(n)}});
    }
    static QString Block(const QString& items) { return "^a,b,c,d,e," + items + "\r\n"; }
    testkit::RawDb raw() { return testkit::RawDb(job, testkit::RawDb::Access::ReadOnly); }
    std::set<long> packets() { return raw().numbers("SELECT PACKET_NUM FROM OMBRI_DB_010"); }
};

TEST_F(ParserSaving, RelayedWitsSavesThePacketWhenTheBlockArrives) {
    ws.wits.Gwits_alive = 0;
    parse(Numbered(1)); // WITS down: saved at once
    EXPECT_EQ(packets(), std::set<long>({1}));

    // A packet that came while the stream was up waits for its block; the
    // stream runs out before the block comes. The first block after the
    // outage saves nothing (the waiting packet is lost), then marks it alive.
    ws.wits.Gwits_alive = 5;
    parse(Numbered(2));
    ws.wits.Gwits_alive = 0;
    parse(Block("01085000.5,01105001.5"));
    EXPECT_EQ(packets(), std::set<long>({1}));
    EXPECT_EQ(ws.wits.Gwits_alive, 60);

    // Now the packet waits for the block, which brings its bit depth.
    parse(Numbered(3));
    EXPECT_EQ(packets(), std::set<long>({1}));
    parse(Block("01085002.5,01105003.5"));
    EXPECT_EQ(raw().value("SELECT BIT_DEPTH FROM OMBRI_DB_010 WHERE PACKET_NUM = 3"), "5002.5");

    // A block too short to read still saves the waiting packet; packet and
    // block in one read are both handled in the one call.
    parse(Numbered(4));
    parse("^x,y\r\n");
    parse(Numbered(5) + Block("01085004.5"));
    EXPECT_EQ(packets(), std::set<long>({1, 3, 4, 5}));
}

TEST_F(ParserSaving, WithoutWitsAtThePacketLocalWitsWithItsDepthAndTheAlarmIsLogged) {
    parse(Numbered(1, "5 "));
    EXPECT_EQ(raw().value("SELECT DEPTH FROM OMBRI_DB_010 WHERE PACKET_NUM = 1"), "1001.0");
    EXPECT_TRUE(folder.read("ERR_LOG.TXT").contains("HIGH SAMPLE FLOW RATE"));

    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    ws.wits.Gwits_alive = 40;
    ws.wits.Gwits_values[1] = 7777.5;
    parse(Numbered(2));
    EXPECT_EQ(raw().value("SELECT DEPTH FROM OMBRI_DB_010 WHERE PACKET_NUM = 2"), "7777.5");
}

TEST_F(ParserSaving, OneIntakeTickStoresEveryWholePacketThatArrivedInOrder) {
    // Packets first to last come in one read, or cut in two reads at cut;
    // one tick a read, and every packet is stored by the last.
    struct Case {
        int first, last, cut;
        const char* extra;
    };
    const Case cases[] = {
        {1, 10, 0, ""}, {11, 14, 500, ""}, {15, 17, 0, "[UPTIME 80]\r\n&a,b\r\n"}};
    for (const Case& c : cases) {
        QString text;
        QStringList want;
        for (int n = c.first; n <= c.last; ++n, text += c.extra) {
            text += Numbered(n);
            want << QString::number(n);
        }
        for (const QString& read :
             c.cut ? QStringList{text.left(c.cut), text.mid(c.cut)} : QStringList{text}) {
            ws.packet.Garrival_buffer = read;
            acq::tmrDataArrival_Timer(ws);
        }
        EXPECT_EQ(
            raw().value(QString("SELECT group_concat(PACKET_NUM, ' ') FROM (SELECT PACKET_NUM FROM "
                                "OMBRI_DB_010 WHERE PACKET_NUM >= %1 ORDER BY rowid)")
                            .arg(c.first)),
            want.join(' '));
        EXPECT_EQ(ws.packet.Gline_buffer, "\n"); // nothing whole left behind
    }
}

} // namespace
