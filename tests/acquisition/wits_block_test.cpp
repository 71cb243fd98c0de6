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

TEST_F(WitsBlock, EveryCodeOfTheRoleTableLandsInItsSlot) {
    // Custom codes that no row names, so that only the fixed table acts.
    for (int i = 0; i < 4; ++i) ws.fm_setup.txt_custom_wits_number[i].setText("9000");
    struct Case {
        int code;
        int slot;
        double sent;
        double stored;
    };
    // Each code alone in its own block, so every code of a shared slot is
    // seen to land there; pump rates and item 0137 keep their whole part.
    const Case cases[] = {
        {108, 0, 5000.5, 5000.5},  {408, 0, 5001.25, 5001.25},  {110, 1, 5010.5, 5010.5},
        {410, 1, 5011, 5011},      {1108, 1, 5012.75, 5012.75}, {113, 2, 45.5, 45.5},
        {114, 3, 210.5, 210.5},    {115, 3, 215, 215},          {116, 4, 18.5, 18.5},
        {117, 4, 22.5, 22.5},      {120, 5, 95.5, 95.5},        {121, 6, 2800.5, 2800.5},
        {414, 6, 2850, 2850},      {122, 7, 150.5, 150.5},      {123, 8, 45.9, 45},
        {124, 9, 61.99, 61},       {125, 10, 0.5, 0},           {137, 11, 12345.8, 12345},
        {143, 12, 1.5, 1.5},       {144, 13, 2.5, 2.5},         {145, 14, 3.5, 3.5},
        {713, 15, 12.5, 12.5},     {715, 16, 245.25, 245.25},   {716, 17, 30.5, 30.5},
        {6310, 17, 31.5, 31.5},    {6339, 17, 32.5, 32.5},      {717, 18, 40.5, 40.5},
        {722, 19, 50.5, 50.5},     {6311, 19, 51.5, 51.5},      {6340, 19, 52.5, 52.5},
        {821, 20, 5005.5, 5005.5}, {823, 21, 88.5, 88.5},       {824, 21, 89.5, 89.5},
        {129, 26, 600.5, 600.5},
    };
    for (const Case& c : cases) {
        ws.wits.Gwits_values.fill(-1);
        parse(Block({Item(c.code, text::Str(c.sent))}));
        for (int s = 0; s < wits::kWitsSlots; ++s) {
            const double want = s == c.slot ? c.stored : -1;
            EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[s], want) << "code " << c.code << " slot " << s;
        }
    }
    // The whole part drops the fraction towards zero, below zero too.
    parse(Block({Item(123, "-3.7")}));
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[8], -3);
    // No row writes into 22 to 25: they are the custom channels'.
    for (const auto& r : wits::WitsRoleTable()) {
        EXPECT_TRUE(r.slot < wits::kFirstCustomSlot || r.slot > wits::kFirstCustomSlot + 3)
            << r.slot;
    }
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
}

TEST_F(WitsBlock, TheFirstFiveFieldsAreNeverRead) {
    parse("^0108111,0108222,0108333,0108444,0108555," + Item(110, "19") + "\r\n");
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[0], 0);
    EXPECT_DOUBLE_EQ(ws.wits.Gwits_values[1], 19);
}

TEST_F(WitsBlock, ABlockMarksTheStreamAliveAndFreshValuesDriveThePumpButton) {
    ws.wits.Gwits_alive = 0;
    ws.wits.Gspm = 87.6;
    parse(Block({Item(123, "40")}) + "tail");
    EXPECT_EQ(ws.wits.Gwits_alive, 60);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.caption(), "88 SPM");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.backColor(), forms::color::Green);
    EXPECT_EQ(buffer(), "\ntail");

    ws.wits.Gspm = 0;
    parse(Block({Item(123, "0")}));
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.caption(), "Pumps Off");
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_pumps.backColor(), forms::color::Red);
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
