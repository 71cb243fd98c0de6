// The tagged lines of the instrument: banners, replies and their odd buffer
// rules, and the order in which the searches run.
#include "acq_fixture.h"

#include "acquisition/parser.h"

using acqtest::AcqTest;
using acqtest::Packet;

namespace {

class ParserTags : public AcqTest {};

TEST_F(ParserTags, BannerFindsTheDetectorAndThrowsTheWholeBufferAway) {
    ws.packet.Gombri_data_array[0] = "old";
    parse("KETTLEWICK GAS DETECTOR V3\r\n" + Packet({{0, "SN9"}}));
    EXPECT_TRUE(ws.link.Gdetector_found);
    EXPECT_TRUE(buffer().isEmpty());
    // The packet in the same buffer is lost: nothing copied, no watchdog.
    EXPECT_EQ(field(0), "old");
    EXPECT_EQ(ws.link.Glink_countdown, 5);
}

TEST_F(ParserTags, TimingSetCutsOnlyTheFirstThreeCharactersOfEveryTag) {
    ws.fm_help.txt_help.setText("an older job's lines\r\n");
    parse("ab[TIMING SET]\r\ncd[TIMING SET]ef");
    EXPECT_EQ(buffer(), "abMING SET]\r\ncdMING SET]ef");
    EXPECT_EQ(ws.fm_help.txt_help.text(), "Chromatograph Timing Setting Has Been Confirmed\r\n");
    EXPECT_TRUE(ws.fm_help.form.visible());
    // The leftover waits until a step takes a line that stands behind it.
    parse(Packet({{0, "SN1"}}));
    EXPECT_EQ(field(0), "SN1");
    EXPECT_EQ(buffer(), "\n");
}

TEST_F(ParserTags, UptimeWaitsForItsCrAndItsCutTakesOneCharacterPastIt) {
    // Buffer, then the uptime and the buffer after one parse.
    const struct {
        QString text;
        double uptime;
        const char* left;
    } cases[] = {
        // Every copy of the exact line goes, wherever it stands.
        {"[UPTIME 87.5]\r\nA[UPTIME 87.5]\r\nB", 87.5, "AB"},
        {"[UPTIME 42]", 100, "[UPTIME 42]"},
        // The CR search starts at the buffer's beginning: the packet's CR
        // stands first, so the uptime line waits for the next call.
        {Packet({{0, "SN1"}}) + "[UPTIME 33]\r\n", 100, "\n[UPTIME 33]\r\n"},
        // A CR-only line loses the star of the packet behind it.
        {"[UPTIME 60]\r*SN5,1,2\r\n", 60, "SN5,1,2\r\n"},
    };
    for (const auto& c : cases) {
        ws.packet.Gline_buffer.clear();
        ws.link.Guptime_percent = 100;
        parse(c.text);
        EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, c.uptime) << c.left;
        EXPECT_EQ(buffer(), c.left);
    }
    EXPECT_NE(field(0), "SN5");
}

TEST_F(ParserTags, RepliesFillTheirSetupBoxesAndTakeTheWholeBuffer) {
    auto& d = ws.fm_setup.txt_data;
    for (auto& box : d) box.setText("-");
    // Which register fills which box is the link suite's (commands_test,
    // from the simulator); here the rounding and a register no box shows.
    for (const char* reply : {"DRILL DEPTH IS: 1234.50 FT", "JOB NUM 0042x", "Reg 29 = 2.5",
                              "Reg 30 = 3.5", "Reg 26 = 9"}) {
        parse(QString(reply) + "\r\nmore");
        EXPECT_TRUE(buffer().isEmpty()) << reply;
    }
    // A tie rounds to the even number.
    const QStringList expected = {"1234.5", "-", "2", "4", "-", "-", "-", "42", "-", "-"};
    for (int i = 0; i < 10; ++i) EXPECT_EQ(d[i].text(), expected[i]) << i;
}

TEST_F(ParserTags, TheSearchesRunInTheirFixedOrder) {
    // A register reply comes before the packet and clears it away.
    ws.packet.Gombri_data_array[0] = "old";
    parse(Packet({{0, "SN7"}}) + "Reg 25 = 3\r\n");
    EXPECT_EQ(ws.fm_setup.txt_data[1].text(), "3");
    EXPECT_EQ(field(0), "old");

    // Uptime, packet and health line in one buffer, each by its own step.
    parse("[UPTIME 70]\r\n" + Packet({{0, "SN2"}}) + "&1,2,3,4,5,6,7\r\n");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 70);
    EXPECT_EQ(field(0), "SN2");
    EXPECT_EQ(ws.fm_setup.fr_sample.caption(), "Sample Gas Sensor Health: Good");
    EXPECT_EQ(buffer(), "\n");
}

TEST_F(ParserTags, TheBufferIsClearedPast1024CharactersOfUnknownText) {
    parse(QString(1024, QChar('x')));
    EXPECT_EQ(buffer().size(), 1024);
    parse("y");
    EXPECT_TRUE(buffer().isEmpty());
}

TEST_F(ParserTags, HealthLineNeedsMoreThanSixFields) {
    ws.fm_setup.fr_sample.setCaption("Sample Gas Sensor Health:");
    parse("&1,2,3,4,5,6\r\nX");
    EXPECT_EQ(ws.fm_setup.fr_sample.caption(), "Sample Gas Sensor Health:");
    EXPECT_EQ(buffer(), "\nX"); // whatever the count, the line went through its CR
}

} // namespace
