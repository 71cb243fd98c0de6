// The "^" WITS block relayed by the instrument: the custom channels, the
// display list and the buffer rules.
#include "acq_fixture.h"

#include "acquisition/parser.h"
#include "wits/wits_file.h"

using acqtest::AcqTest;

namespace {

class WitsBlock : public AcqTest {
  protected:
    void SetUp() override { wits::LoadWitsFile(ws); }
    // A block: five leading fields that are never read, then the items.
    static QString Block(const QStringList& items) {
        return "^H0,H1,H2,H3,H4," + items.join(',') + "\r\n";
    }
};

TEST_F(WitsBlock, CustomCodesFillTheirSlotsBesideAFixedOneAndHoldFor300Seconds) {
    // The setup panel's defaults: 0117, 0121, 0120, 0126; the fourth moved
    // to a code no fixed slot takes, the first to a pump rate.
    ws.fm_setup.txt_custom_wits_number[3].setText("0999");
    ws.fm_setup.txt_custom_wits_number[0].setText("123");
    ws.wits.Gwits_custom_hold = 12;
    parse(Block({"012345.9", "01202800.5", "09997.25"}));
    // The pump rate keeps its whole part in its fixed slot, the fraction in
    // its custom one; a custom value is stored as sent.
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[8], 45);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[22], 45.9);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[24], 2800.5);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[25], 7.25);
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 300);

    // A code that is neither fixed nor custom reaches the list only.
    const auto before = ws.wits.Gwits_values;
    ws.wits.Gwits_custom_hold = 5;
    parse(Block({"05551.5"}));
    EXPECT_EQ(ws.wits.Gwits_values, before);
    EXPECT_EQ(ws.wits.Gwits_custom_hold, 5);
    EXPECT_EQ(ws.more_data.wits_info.items(), QStringList{"0555  Unknown  1.5"});
}

TEST_F(WitsBlock, TheListShowsEveryItemAndTheBitDepthLabelFollows0108) {
    ws.more_data.wits_info.addItem("stale line");
    parse(Block({"01081234.5", "0108", "01081", "77773.5"}));
    EXPECT_EQ(ws.more_data.wits_info.items(),
              (QStringList{"0108  Depth Bit (meas)  1234.5", "7777  Unknown  3.5"}));
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "1234.5");
    parse(Block({"01081300"}));
    EXPECT_EQ(ws.more_data.lbl_bit_depth.caption(), "1300.0");
    // The five leading fields are never read as items.
    parse("^0108111,0108222,0108333,0108444,0108555,011019\r\n");
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[0], 1300);
}

TEST_F(WitsBlock, AShortBlockLosesItsLineButTheFieldCountIsOverTheWholeBuffer) {
    ws.wits.Gwits_alive = 0;
    parse("^1,2,3\r\nX");
    EXPECT_EQ(buffer(), "\nX");
    EXPECT_EQ(ws.wits.Gwits_alive, 0);

    // The same line with text waiting behind it that lifts the count to
    // six: the block is taken, with no items to read.
    ws.packet.Gline_buffer.clear();
    parse("^1,2,3\r\nx,y,z,w");
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_EQ(buffer(), "\nx,y,z,w");
}

} // namespace
