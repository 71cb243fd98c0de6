// The "^" WITS block relayed by the instrument: the role table, the custom
// channels, the display list and the buffer rules.
#include "acq_fixture.h"

#include "acquisition/parser.h"
#include "text/numbers.h"
#include "wits/wits_file.h"
#include "wits/wits_roles.h"

using acqtest::AcqTest;

namespace {

class WitsBlock : public AcqTest {
  protected:
    void SetUp() override { wits::LoadWitsFile(ws); }
    // A block: five leading fields that are never read, then the items.
    static QString Block(const QStringList& items) {
        return "^H0,H1,H2,H3,H4," + items.join(',') + "\r\n";
    }
    static QString Item(int code, const QString& value) {
        return QString("%1").arg(code, 4, 10, QChar('0')) + value;
    }
};

TEST_F(WitsBlock, ItemsLandInTheirSlotsAndPumpRatesKeepTheirWholePart) {
    // Custom codes that no row names, so that only the fixed table acts.
    for (int i = 0; i < 4; ++i) ws.fm_setup.txt_custom_wits_number[i].setText("9000");
    parse(Block({Item(108, "5000.5"), Item(1108, "5012.75"), Item(123, "-3.7"),
                 Item(137, "12345.8"), Item(6339, "32.5")}));
    // Slots 0, 1, 8 (towards zero), 11, 17 and the custom 22 to 25.
    QStringList got;
    for (int s : {0, 1, 8, 11, 17, 22, 23, 24, 25}) got << text::Str(ws.wits.Gwits_values[s]);
    EXPECT_EQ(got.join(' '), "5000.5 5012.75 -3 12345 32.5 0 0 0 0");
}

TEST_F(WitsBlock, CustomCodesFillTheirSlotsBesideAFixedOneAndHoldFor300Seconds) {
    // The setup panel's defaults: 0117, 0121, 0120, 0126.
    ws.fm_setup.txt_custom_wits_number[3].setText("0999");
    ws.wits.Gwits_custom_hold = 0;
    parse(Block({Item(117, "22.5")}));
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[4], 22.5);  // fixed slot
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[22], 22.5); // and custom 1
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 300);

    ws.wits.Gwits_custom_hold = 12;
    parse(Block({Item(121, "2800.5"), Item(120, "95.5"), Item(999, "7.25")}));
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[23], 2800.5);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[24], 95.5);
    // A custom value is stored as sent, not cut to its whole part.
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[25], 7.25);
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 300);

    // A code that is neither fixed nor custom reaches the list only.
    const auto before = ws.wits.Gwits_values;
    ws.wits.Gwits_custom_hold = 5;
    parse(Block({Item(555, "1.5")}));
    EXPECT_EQ(ws.wits.Gwits_values, before);
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 5);
    EXPECT_EQ(ws.more_data.wits_info.items(), QStringList{"0555  Unknown  1.5"});

    // A custom pump code keeps the fraction in its custom slot only.
    ws.fm_setup.txt_custom_wits_number[0].setText("123");
    parse(Block({Item(123, "45.9")}));
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[8], 45);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[22], 45.9);
}

TEST_F(WitsBlock, TheListShowsEveryItemAndTheBitDepthLabelFollows0108) {
    ws.more_data.wits_info.addItem("stale line");
    parse(Block({Item(108, "1234.5"), Item(1108, "1240"), "0108", "01081", Item(7777, "3.5")}));
    EXPECT_EQ(ws.more_data.wits_info.items(),
              (QStringList{"0108  Depth Bit (meas)  1234.5", "1108  Depth Hole (meas)  1240",
                           "7777  Unknown  3.5"}));
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "1234.5");
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[0], 1234.5);

    parse(Block({Item(108, "1300")}));
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "1300.0");
    EXPECT_EQ(ws.more_data.wits_info.items().size(), 1);
    // The five leading fields are never read as items.
    parse("^0108111,0108222,0108333,0108444,0108555," + Item(110, "19") + "\r\n");
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[0], 1300);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[1], 19);
}

TEST_F(WitsBlock, ABlockMarksTheStreamAliveAndFreshValuesDriveThePumpButton) {
    ws.wits.Gwits_alive = 0;
    ws.wits.Gspm = 87.6;
    parse(Block({Item(123, "40")}) + "tail");
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_pumps), look("88 SPM", forms::color::Green));
    EXPECT_EQ(buffer(), "\ntail");

    ws.wits.Gspm = 0;
    parse(Block({Item(123, "0")}));
    EXPECT_EQ(look(ws.fm_Gas_Chart.cmd_pumps), look("Pumps Off", forms::color::Red));
}

TEST_F(WitsBlock, AShortBlockLosesItsLineButTheFieldCountIsOverTheWholeBuffer) {
    ws.wits.Gwits_alive = 0;
    ws.more_data.wits_info.addItem("kept");
    parse("^1,2,3\r\nX");
    EXPECT_EQ(buffer(), "\nX");
    EXPECT_EQ(ws.wits.Gwits_alive, 0);
    EXPECT_EQ(ws.more_data.wits_info.items(), QStringList{"kept"});

    // The same block line with text waiting behind it that lifts the count
    // to six: the block is taken, with no items to read.
    ws.packet.Gline_buffer.clear();
    parse("^1,2,3\r\nx,y,z,w");
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_TRUE(ws.more_data.wits_info.items().isEmpty());
    EXPECT_EQ(buffer(), "\nx,y,z,w");

    // Without its CR the block waits.
    ws.packet.Gline_buffer.clear();
    parse("^H0,H1,H2,H3,H4,0110500");
    EXPECT_EQ(buffer(), "^H0,H1,H2,H3,H4,0110500");
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[1], 0);
}

} // namespace
