// The data packet: splitting, the repairs made to it, the buffer after it,
// the parse failure and the local WITS override.
#include "acq_fixture.h"

#include "acquisition/live_fields.h"
#include "acquisition/main_loop.h"
#include "acquisition/parser.h"
#include "text/numbers.h"
#include "wits/wits_link.h"

using acqtest::AcqTest;
using acqtest::Packet;

namespace {

class ParserPacket : public AcqTest {};

TEST_F(ParserPacket, APacketIsSplitIntoTheArrayAndTheWatchdogReset) {
    ws.link.Glink_countdown = 7;
    // Text before the star goes with the packet.
    parse("noise\r\nmore noise *KW1234,03/05/2024,14:05:00,1500.5,12.25,20.9,0.1,1,41,3.2,18.7"
          "\r\ntail");
    EXPECT_EQ(field(acq::SERIALNUM), "KW1234"); // the star belongs to field 0 and goes
    EXPECT_EQ(field(acq::DATE), "03/05/2024");
    EXPECT_EQ(field(acq::OMBRITIME), "14:05:00");
    EXPECT_EQ(field(acq::DEPTH), "1500.5");
    EXPECT_EQ(field(acq::GASUNITS), "12.25");
    EXPECT_EQ(field(acq::FTHR), "18.7");
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    EXPECT_EQ(buffer(), "\ntail");
    EXPECT_FALSE(ws.packet.Gparse_busy);
}

TEST_F(ParserPacket, AShortPacketWaitsForItsCrAndLeavesTheLaterFieldsAsTheyWere) {
    parse(Packet({{29, "C1a"}, {39, "NC5a"}}));
    ws.packet.Gline_buffer.clear();
    ws.link.Glink_countdown = 9;
    parse("*SN,d,t");
    EXPECT_EQ(buffer(), "*SN,d,t");
    EXPECT_EQ(field(0), "f0");
    EXPECT_EQ(ws.link.Glink_countdown, 9);
    parse(",100\r");
    EXPECT_EQ(field(0), "SN");
    EXPECT_EQ(field(3), "100");
    EXPECT_EQ(field(29), "C1a");
    EXPECT_EQ(field(39), "NC5a");
    EXPECT_TRUE(buffer().isEmpty());
}

TEST_F(ParserPacket, DepthOutOfRangeKeepsTheLastGoodDepth) {
    parse(Packet({{3, "1234.50"}}));
    EXPECT_EQ(field(3), "1234.50");
    parse(Packet({{3, "49990"}})); // the limit itself passes
    EXPECT_EQ(field(3), "49990");
    parse(Packet({{3, "1234.50"}}));
    parse(Packet({{3, "49990.5"}}));
    // The survivor is the number text of the last depth, not its old text.
    EXPECT_EQ(field(3), "1234.5");
    parse(Packet({{3, "-1"}}));
    EXPECT_EQ(field(3), "1234.5");
    // A depth with no digits reads 0, which is in range.
    parse(Packet({{3, "x"}}));
    EXPECT_EQ(field(3), "x");
}

TEST_F(ParserPacket, EmptyFieldsUpTo40BecomeOneBlank) {
    QStringList f;
    for (int i = 0; i < 61; ++i) f << QString();
    f[0] = "*SN";
    f[45] = "k45";
    parse(f.join(',') + "\r\n");
    EXPECT_EQ(field(0), "SN");
    for (int i = 1; i <= 40; ++i) EXPECT_EQ(field(i), " ") << i;
    EXPECT_EQ(field(41), "");
    EXPECT_EQ(field(45), "k45");
    EXPECT_EQ(field(60), "");
}

TEST_F(ParserPacket, SixtyOneFieldsAreTakenSixtyTwoFailTheParse) {
    parse(Packet({{60, "last"}}, 61));
    EXPECT_EQ(field(60), "last");
    EXPECT_FALSE(ws.fm_Gas_Chart.txt_message.text().contains("parsing Err"));

    ws.link.Glink_countdown = 3;
    parse(Packet({{0, "SNX"}, {60, "sixty"}, {61, "extra"}}, 62) + "*next,1\r\n");
    // The fields before the failure were copied, the rest of the buffer is
    // gone with the packet behind it, and the next call starts clean.
    EXPECT_EQ(field(0), "*SNX");
    EXPECT_EQ(field(60), "sixty");
    EXPECT_TRUE(buffer().isEmpty());
    EXPECT_FALSE(ws.packet.Gparse_busy);
    EXPECT_EQ(ws.link.Glink_countdown, 61);
    const QString msg = ws.fm_Gas_Chart.txt_message.text().section("\r\n", -1);
    EXPECT_TRUE(msg.startsWith("Kettlewick packet parsing Err: Subscript out of range Err pt: "))
        << msg.toStdString();
    // The progress number names the packet step (the tenth, in hundreds).
    const int pt = msg.section("Err pt: ", 1).toInt();
    EXPECT_GE(pt, 1000);
    EXPECT_LT(pt, 1100);
    // The failure is in the error log too.
    EXPECT_TRUE(folder.read("ERR_LOG.TXT").contains("Kettlewick packet parsing Err: "));

    parse(Packet({{0, "SNY"}}));
    EXPECT_EQ(field(0), "SNY");
}

TEST_F(ParserPacket, TheIntakeTickHoldsTextWhileBusyOrInTransfer) {
    ws.packet.Garrival_buffer = Packet({{0, "FIRST"}}) + Packet({{0, "SECOND"}});
    acq::tmrDataArrival_Timer(ws);
    EXPECT_EQ(field(0), "SECOND");
    EXPECT_EQ(buffer(), "\n");

    ws.packet.Gparse_busy = true;
    ws.packet.Garrival_buffer = Packet({{0, "HELD"}});
    acq::tmrDataArrival_Timer(ws);
    EXPECT_EQ(ws.packet.Garrival_buffer, Packet({{0, "HELD"}}));
    EXPECT_EQ(buffer(), "\n");
    ws.packet.Gparse_busy = false;

    ws.packet.Gtransfer_active = true;
    acq::tmrDataArrival_Timer(ws);
    EXPECT_TRUE(ws.packet.Garrival_buffer.isEmpty());
    EXPECT_EQ(ws.packet.Gtransfer_buffer, Packet({{0, "HELD"}}));
    EXPECT_EQ(field(0), "SECOND");
}

TEST_F(ParserPacket, LocalWitsReplacesDepthAndRatesOnlyWhileItIsUp) {
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    ws.wits.Gwits_values[1] = 2345.5;
    ws.wits.Gwits_alive = 0;
    parse(Packet({{3, "1000"}, {9, "2.5"}, {10, "24"}}));
    EXPECT_EQ(field(3), "1000");
    EXPECT_EQ(field(9), "2.5");

    ws.wits.Gwits_alive = 1;
    parse(Packet({{3, "1000"}, {9, "2.5"}, {10, "24"}}));
    EXPECT_EQ(field(3), "2345.5");
    EXPECT_EQ(field(9), text::Str(wits::WitsMinFt(ws)));
    EXPECT_EQ(field(10), text::Str(wits::WitsFtHr(ws)));

    // Relayed WITS (box clear) leaves the packet as the instrument sent it.
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(false);
    ws.wits.Gwits_alive = 30;
    parse(Packet({{3, "1001"}}));
    EXPECT_EQ(field(3), "1001");
    // The display applies the override again to what the packet left.
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    acq::fill_vis_fields(ws);
    EXPECT_EQ(ws.more_data.lbl_DrillDepth.caption(), "2345.5");
}

} // namespace
