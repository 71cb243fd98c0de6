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

TEST_F(ParserPacket, AShortPacketWaitsForItsCrResetsTheWatchdogAndLeavesTheLaterFields) {
    parse(Packet({{39, "NC5a"}}));
    ws.packet.Gline_buffer.clear();
    parse("*SN,d,t");
    ws.link.Glink_countdown = 7;
    parse(",100\r");
    EXPECT_EQ(field(3), "100");
    EXPECT_EQ(ws.link.Glink_countdown, 61); // the link's watchdog is reset
    EXPECT_EQ(field(39), "NC5a");
    EXPECT_TRUE(buffer().isEmpty());
}

TEST_F(ParserPacket, DepthOutOfRangeKeepsTheLastGoodDepthAsANumber) {
    // Depth sent, depth kept: the limit itself passes, a depth with no
    // digits reads 0, which is in range.
    const std::pair<const char*, const char*> steps[] = {{"49990", "49990"},
                                                         {"1234.50", "1234.50"},
                                                         {"49990.5", "1234.5"},
                                                         {"-1", "1234.5"},
                                                         {"x", "x"}};
    for (const auto& [sent, kept] : steps) {
        parse(Packet({{3, sent}}));
        EXPECT_EQ(field(3), kept) << sent;
    }
}

TEST_F(ParserPacket, EmptyFieldsUpTo40BecomeOneBlank) {
    QStringList f(61);
    f[0] = "*SN";
    parse(f.join(',') + "\r\n");
    for (int i = 1; i <= 40; ++i) EXPECT_EQ(field(i), " ") << i;
    EXPECT_EQ(field(41), "");
}

TEST_F(ParserPacket, SixtyOneFieldsAreTakenSixtyTwoFailTheParse) {
    parse(Packet({{60, "last"}}, 61));
    EXPECT_EQ(field(60), "last");
    EXPECT_FALSE(ws.fm_Gas_Chart.txt_message.text().contains("parsing Err"));

    // The fields before the failure were copied, the packet behind it goes
    // with the buffer, and the next call starts clean.
    parse(Packet({{0, "SNX"}, {60, "sixty"}}, 62) + "*next,1\r\n");
    EXPECT_EQ(field(60), "sixty");
    EXPECT_TRUE(buffer().isEmpty());
    EXPECT_FALSE(ws.packet.Gparse_busy);
    EXPECT_TRUE(
        lastMessage().startsWith("Kettlewick packet parsing Err: Subscript out of range Err pt: "))
        << lastMessage().toStdString();
    parse(Packet({{0, "SNY"}}));
    EXPECT_EQ(field(0), "SNY");
}

TEST_F(ParserPacket, TheIntakeTickHoldsTextWhileBusyOrInTransfer) {
    ws.packet.Garrival_buffer = Packet({{0, "FIRST"}}) + Packet({{0, "SECOND"}});
    acq::tmrDataArrival_Timer(ws);
    EXPECT_EQ(field(0), "SECOND");

    ws.packet.Gparse_busy = true;
    ws.packet.Garrival_buffer = Packet({{0, "HELD"}});
    acq::tmrDataArrival_Timer(ws);
    EXPECT_EQ(ws.packet.Garrival_buffer, Packet({{0, "HELD"}}));
    ws.packet.Gparse_busy = false;

    ws.packet.Gtransfer_active = true;
    acq::tmrDataArrival_Timer(ws);
    EXPECT_EQ(ws.packet.Gtransfer_buffer, Packet({{0, "HELD"}}));
    EXPECT_EQ(field(0), "SECOND");
}

TEST_F(ParserPacket, LocalWitsReplacesDepthAndRatesOnlyWhileItIsUp) {
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    ws.wits.Gwits_values[1] = 2345.5;
    // WITS life, then the depth and minutes a foot the packet is left with.
    const struct {
        bool local;
        int alive;
        QString depth;
        QString minFt;
    } rows[] = {{true, 0, "1000", "2.5"},
                {true, 1, "2345.5", text::Str(wits::WitsMinFt(ws))},
                {false, 30, "1000", "2.5"}}; // relayed: as the instrument sent it
    for (const auto& r : rows) {
        ws.fm_WITS.ck_Use_Local_WITS.setChecked(r.local);
        ws.wits.Gwits_alive = r.alive;
        parse(Packet({{3, "1000"}, {9, "2.5"}}));
        EXPECT_EQ(field(3), r.depth) << r.alive;
        EXPECT_EQ(field(9), r.minFt) << r.alive;
    }
    // The display applies the override again to what the packet left.
    ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
    acq::fill_vis_fields(ws);
    EXPECT_EQ(ws.more_data.lbl_DrillDepth.caption(), "2345.5");
}

} // namespace
