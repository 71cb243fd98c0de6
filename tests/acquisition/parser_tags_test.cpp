// The tagged lines of the instrument: banners, replies and their odd buffer
// rules, and the order in which the searches run.
#include "acq_fixture.h"

#include "acquisition/parser.h"

using acqtest::AcqTest;
using acqtest::Packet;

namespace {

class ParserTags : public AcqTest {};

TEST_F(ParserTags, BannerFindsTheDetectorAndThrowsTheWholeBufferAway) {
    // TCPCONNECT without a socket to answer on only clears.
    parse("TCPCONNECT\r\n");
    EXPECT_TRUE(buffer().isEmpty());
    EXPECT_FALSE(ws.link.Gdetector_found);

    ws.packet.Gombri_data_array[0] = "old";
    parse("KETTLEWICK GAS DETECTOR V3\r\n" + Packet({{0, "SN9"}}));
    EXPECT_TRUE(ws.link.Gdetector_found);
    EXPECT_TRUE(buffer().isEmpty());
    // The packet in the same buffer is lost: nothing was copied, the link
    // watchdog did not move.
    EXPECT_EQ(field(0), "old");
    EXPECT_EQ(ws.link.Glink_countdown, 5);
    EXPECT_FALSE(ws.packet.Gparse_busy);
}

TEST_F(ParserTags, TimingSetCutsOnlyTheFirstThreeCharactersOfEveryTag) {
    ws.fm_help.txt_help.setText("an older job's lines\r\n");
    parse("ab[TIMING SET]\r\ncd[TIMING SET]ef");
    // Every "[TI" is gone and the rest of each tag stays behind.
    EXPECT_EQ(buffer(), "abMING SET]\r\ncdMING SET]ef");
    EXPECT_EQ(ws.fm_help.pgbar.value(), 1);
    EXPECT_EQ(ws.fm_help.txt_help.text(), "Chromatograph Timing Setting Has Been Confirmed\r\n");
    EXPECT_TRUE(ws.fm_help.form.visible());

    // The leftover waits through calls that find nothing, until a step
    // clears it or takes a line that stands behind it.
    parse("");
    EXPECT_EQ(buffer(), "abMING SET]\r\ncdMING SET]ef");
    parse(Packet({{0, "SN1"}}));
    EXPECT_EQ(field(0), "SN1");
    EXPECT_EQ(buffer(), "\n");
}

TEST_F(ParserTags, UptimeIsReadAndItsLineCutWhereverItStands) {
    parse("[UPTIME 87.5]\r\nA[UPTIME 87.5]\r\nB");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 87.5);
    // The tag through CR LF goes, every copy of that exact text.
    EXPECT_EQ(buffer(), "AB");
    ws.packet.Gline_buffer.clear();

    // Without its CR the line waits whole.
    parse("[UPTIME 42]");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 87.5);
    EXPECT_EQ(buffer(), "[UPTIME 42]");
    parse("\r\n");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 42);
    EXPECT_TRUE(buffer().isEmpty());
}

TEST_F(ParserTags, AnOlderCrBeforeATagKeepsTheTagWaiting) {
    // The CR search of the tagged lines starts at the buffer's beginning: the
    // packet's CR stands first, so the uptime line waits for the next call.
    parse(Packet({{0, "SN1"}}) + "[UPTIME 33]\r\n");
    EXPECT_EQ(field(0), "SN1");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 100);
    // The packet went through its CR; its LF is still in front.
    EXPECT_EQ(buffer(), "\n[UPTIME 33]\r\n");
    parse("");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 33);
    EXPECT_EQ(buffer(), "\n");
}

TEST_F(ParserTags, TheTagCutTakesOneCharacterPastTheCrEvenWithoutALineFeed) {
    // A CR-only line loses the next character instead of a line feed: here
    // the star of the packet behind it, so that packet is never taken.
    parse("[UPTIME 60]\r*SN5,1,2\r\n");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 60);
    EXPECT_EQ(buffer(), "SN5,1,2\r\n");
    EXPECT_NE(field(0), "SN5");
    // A CR at the very end: the cut simply ends with the buffer.
    ws.packet.Gline_buffer.clear();
    parse("[UPTIME 61]\r");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 61);
    EXPECT_TRUE(buffer().isEmpty());
}

TEST_F(ParserTags, TwoWayAndOutputOnlySetTheSecureButton) {
    auto& b = ws.fm_setup.cmd_secure;
    parse("[TWO WAY]\r\n");
    EXPECT_EQ(look(b), look("Two Way Active", forms::color::Green));
    EXPECT_TRUE(buffer().isEmpty());
    parse("[OUTPUT ONLY]\r\nrest");
    EXPECT_EQ(look(b), look("Two Way Inactive", forms::color::Red));
    EXPECT_EQ(buffer(), "rest");
    // Waits for its CR like the uptime line.
    parse("[TWO WAY]");
    EXPECT_EQ(b.caption(), "Two Way Inactive");
    EXPECT_EQ(buffer(), "rest[TWO WAY]");
}

TEST_F(ParserTags, RepliesFillTheirSetupBoxesAndTakeTheWholeBuffer) {
    auto& d = ws.fm_setup.txt_data;
    for (auto& box : d) box.setText("-");
    // Unknown registers, short or long numbers alike, change nothing.
    for (const char* reply : {"DRILL DEPTH IS: 1234.50 FT", "JOB NUM 0042x", "Reg 25 = 7",
                              "Reg 29 = 2.5", "Reg 30 = 3.5", "Reg 34 = 120", "Reg 45 = 0",
                              "Reg 53 = 7", "Reg 100 = 7", "Reg 26 = 9"}) {
        parse(QString(reply) + "\r\nmore");
        EXPECT_TRUE(buffer().isEmpty()) << reply;
    }
    // A tie rounds to the even number; register 53 is shown in hundreds.
    const QStringList expected = {"1234.5", "7", "2", "4", "120", "0", "700", "42", "-", "-"};
    for (int i = 0; i < 10; ++i) EXPECT_EQ(d[i].text(), expected[i]) << i;
    // A job number without digits reads 0.
    parse("JOB NUM ?\r\n");
    EXPECT_EQ(d[7].text(), "0");
}

TEST_F(ParserTags, TheSearchesRunInTheirFixedOrder) {
    // The banner comes first and clears: the register reply behind it is
    // never read.
    ws.fm_setup.txt_data[1].setText("-");
    parse("Reg 25 = 7 KETTLEWICK");
    EXPECT_EQ(ws.fm_setup.txt_data[1].text(), "-");
    EXPECT_TRUE(ws.link.Gdetector_found);

    // A register reply comes before the packet and clears: the packet that
    // shares its buffer is lost.
    ws.packet.Gombri_data_array[0] = "old";
    parse(Packet({{0, "SN7"}}) + "Reg 25 = 3\r\n");
    EXPECT_EQ(ws.fm_setup.txt_data[1].text(), "3");
    EXPECT_EQ(field(0), "old");
    EXPECT_TRUE(buffer().isEmpty());

    // Uptime, packet and health line in one buffer are all handled in one
    // call, each by its own step.
    parse("[UPTIME 70]\r\n" + Packet({{0, "SN2"}}) + "&1,2,3,4,5,6,7\r\n");
    EXPECT_DOUBLE_EQ(ws.link.Guptime_percent, 70);
    EXPECT_EQ(field(0), "SN2");
    EXPECT_EQ(ws.fm_setup.fr_sample.caption(), "Sample Gas Sensor Health: Good");
    EXPECT_EQ(buffer(), "\n");
}

TEST_F(ParserTags, TheBufferIsClearedPast1024CharactersOfUnknownText) {
    const QString noise(1024, QChar('x'));
    parse(noise);
    EXPECT_EQ(buffer().size(), 1024);
    parse("y");
    EXPECT_TRUE(buffer().isEmpty());

    // A packet that never gets its CR goes the same way.
    parse("*" + QString(1100, QChar('1')));
    EXPECT_TRUE(buffer().isEmpty());
    EXPECT_FALSE(ws.packet.Gparse_busy);
}

TEST_F(ParserTags, HealthLineNeedsMoreThanSixFields) {
    ws.fm_setup.fr_sample.setCaption("Sample Gas Sensor Health:");
    ws.fm_setup.pg_sample_health.setForeColor(forms::color::Red);
    parse("&1,2,3,4,5,6\r\nX");
    EXPECT_EQ(ws.fm_setup.fr_sample.caption(), "Sample Gas Sensor Health:");
    EXPECT_EQ(ws.fm_setup.pg_sample_health.foreColor(), forms::color::Red);
    // Whatever the count, the line went through its CR.
    EXPECT_EQ(buffer(), "\nX");

    ws.packet.Gline_buffer.clear();
    parse("&1,2,3,4,5,6,7");
    EXPECT_EQ(buffer(), "&1,2,3,4,5,6,7"); // waits for the CR
    parse("\r\n");
    EXPECT_EQ(ws.fm_setup.fr_sample.caption(), "Sample Gas Sensor Health: Good");
    EXPECT_EQ(ws.fm_setup.pg_sample_health.foreColor(), forms::color::Green);
    EXPECT_EQ(buffer(), "\n");
}

} // namespace
