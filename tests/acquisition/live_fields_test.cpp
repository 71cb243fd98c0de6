// The viewer labels, the alarm word, the boxes and the two logs read back
// from the program folder.
#include "acq_fixture.h"

#include "acquisition/live_fields.h"
#include "acquisition/parser.h"

#include <QFileInfo>

using acqtest::AcqTest;
using acqtest::Packet;
using forms::color::Black;
using forms::color::Green;
using forms::color::Orange;
using forms::color::Red;
using forms::color::White;
using forms::color::Yellow;

namespace {

class LiveFields : public AcqTest {
  protected:
    void setAlarm(const QString& f20) { ws.packet.Gombri_data_array[acq::ERRTXT] = f20; }
    QStringList errLog() const {
        QStringList lines = folder.read("ERR_LOG.TXT").split("\r\n");
        if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
        return lines;
    }
};

TEST_F(LiveFields, AChangedAlarmFieldIsLoggedOnceWithAllItsNumbers) {
    setAlarm("5 12 ");
    acq::parse_err_str(ws);
    EXPECT_EQ(ws.packet.Glast_alarm_text, "5 12 ");
    EXPECT_EQ(errLog(),
              QStringList{"14:07:09  03/05/2024 ** HIGH SAMPLE FLOW RATE / HIGH GAS UNITS / "});
    // The same text again: nothing more.
    acq::parse_err_str(ws);
    EXPECT_EQ(errLog().size(), 1);

    setAlarm("19 ");
    acq::parse_err_str(ws);
    EXPECT_EQ(errLog().last(), "14:07:09  03/05/2024 ** UNKNOWN ALARM / ");

    // No alarm: remembered, not logged.
    setAlarm("0 ");
    acq::parse_err_str(ws);
    setAlarm(" ");
    acq::parse_err_str(ws);
    EXPECT_EQ(ws.packet.Glast_alarm_text, " ");
    EXPECT_EQ(errLog().size(), 2);

    // A bare number with no blank behind it splits into one element and
    // gives an empty line in the log.
    setAlarm("7");
    acq::parse_err_str(ws);
    const QString raw = folder.read("ERR_LOG.TXT");
    EXPECT_TRUE(raw.endsWith("UNKNOWN ALARM / \r\n\r\n")) << raw.toStdString();
}

TEST_F(LiveFields, LabelsShowThePacketAndTheViewerTitleNamesIt) {
    parse(Packet({{0, "KW12"},
                  {1, "03/05/2024"},
                  {2, "14:05:00"},
                  {3, "1500.5"},
                  {4, "12.25"},
                  {20, "0 "},
                  {36, "not shown"},
                  {37, "1234"},
                  {39, "0.5"}}));
    acq::fill_vis_fields(ws);
    const auto& v = ws.more_data;
    EXPECT_EQ(v.form.caption(), "REAL TIME DATA KW12 03/05/2024 14:05:00");
    EXPECT_EQ(ws.packet.Gserial_number, "KW12");
    // The gas units as "0.0", a tie away from zero.
    const QStringList shown = {v.lbl_date.caption(),     v.lbl_DrillDepth.caption(),
                               v.lbl_GasUnits.caption(), v.lbl_err.caption(),
                               v.lbl_hobbs.caption(),    v.lbl_nc5.caption()};
    EXPECT_EQ(shown.join('|'), "03/05/2024|1500.5|12.3|0 |1234|0.5");

    acq::clear_vis_fields(ws);
    EXPECT_EQ(v.form.caption(), "REAL TIME DATA ");
    EXPECT_EQ(v.lbl_err_desc.caption(), "No Errors");
    for (const auto& f : forms::MoreData::fieldLabels())
        EXPECT_EQ((v.*(f.label)).caption(), "") << f.frame;
}

TEST_F(LiveFields, GasUnitsColourFollowsTheTwoThresholds) {
    const struct {
        const char* gas;
        long colour;
    } rows[] = {{"999", Green},   {"1000", Green}, {"1000.5", Yellow},
                {"2500", Yellow}, {"2500.5", Red}, {"x", Green}};
    for (const auto& r : rows) {
        ws.packet.Gombri_data_array[acq::GASUNITS] = r.gas;
        acq::fill_vis_fields(ws);
        EXPECT_EQ(ws.more_data.lbl_GasUnits.foreColor(), r.colour) << r.gas;
    }
}

TEST_F(LiveFields, FootSecondsBottomsUpAndComponentColours) {
    ws.depth.Grop_seconds_0 = 12.4;
    ws.depth.Grop_seconds_1 = 3;
    ws.depth.Grop_seconds_2 = 0;
    ws.depth.bottomsUpMinutes = 45.25;
    const long colours[5] = {0x0000FF, 0x00FF00, 0xFF0000, 0x00FFFF, 0xFF00FF};
    auto& c = ws.settings;
    long* slots[5] = {&c.ColorC1, &c.ColorC2, &c.ColorC3, &c.ColorIC4, &c.ColorNC4};
    for (int i = 0; i < 5; ++i) *slots[i] = colours[i];
    acq::fill_vis_fields(ws);
    const auto& v = ws.more_data;
    EXPECT_EQ(v.lbl_Time_Since_Last_Rop_01.caption(), "12 3 0");
    EXPECT_EQ(v.lbl_Bottoms_Up.caption(), "45.3");
    // The pentanes wear the butanes' colours.
    const forms::Control* labels[7] = {&v.lbl_c1,  &v.lbl_c2,  &v.lbl_c3, &v.lbl_ic4,
                                       &v.lbl_nc4, &v.lbl_ic5, &v.lbl_nc5};
    const int wears[7] = {0, 1, 2, 3, 4, 3, 4};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(labels[i]->foreColor(), colours[wears[i]]) << i;
}

TEST_F(LiveFields, BitDepthShowsOffBottomOnlyWithWitsUp) {
    auto& v = ws.more_data;
    auto& frame = v.frameOf("lbl_bit_depth");
    ws.packet.Gombri_data_array[acq::DEPTH] = "1000";
    ws.wits.Gwits_alive = 10;
    v.lbl_bit_depth.setCaption("995.0"); // 995 + 2 < 1000
    acq::fill_vis_fields(ws);
    EXPECT_EQ(look(frame.caption(), v.lbl_bit_depth.backColor()),
              look("Bit Depth  OFF BOTTOM", Orange));
    v.lbl_bit_depth.setCaption("998.9"); // whole part 998 + 2 reaches 1000
    acq::fill_vis_fields(ws);
    EXPECT_EQ(look(frame.caption(), v.lbl_bit_depth.backColor()), look("Bit Depth", Black));

    v.lbl_bit_depth.setCaption("500.0");
    ws.wits.Gwits_alive = 0;
    acq::fill_vis_fields(ws);
    EXPECT_EQ(v.lbl_bit_depth.backColor(), Black);
    ws.wits.Gwits_alive = 10;
    v.lbl_bit_depth.setCaption("9.5"); // 10 ft and less is no bit depth
    acq::fill_vis_fields(ws);
    EXPECT_EQ(v.lbl_bit_depth.backColor(), Black);
}

TEST_F(LiveFields, AlarmBoxShowsTheFirstNumberAndLeavesALastLineWhenCleared) {
    auto& box = ws.fm_Gas_Chart.txt_KW_err;
    parse(Packet({{20, "5 12 "}}));
    acq::fill_vis_fields(ws);
    EXPECT_EQ(look(box.text(), box.backColor()), look("High Sample Flow Rate", Red));
    EXPECT_EQ(ws.more_data.lbl_err_desc.caption(), "High Sample Flow Rate");

    // While the alarm monitor has a message the box is left to it.
    parse(Packet({{20, "0 "}}));
    ws.fm_Gas_Chart.txt_message.setText(""); // only what the display adds counts here
    ws.alarms.alarmMonitorText = "LOST WITS";
    acq::fill_vis_fields(ws);
    EXPECT_EQ(box.text(), "High Sample Flow Rate");
    EXPECT_TRUE(ws.fm_Gas_Chart.txt_message.text().isEmpty());

    ws.alarms.alarmMonitorText.clear();
    acq::fill_vis_fields(ws);
    EXPECT_EQ(look(box.text(), box.backColor()), look("", White));
    EXPECT_EQ(ws.more_data.lbl_err_desc.caption(), "No Errors");
    EXPECT_EQ(ws.fm_Gas_Chart.txt_message.text(), "Last Kettlewick Alarm: High Sample Flow Rate");
    EXPECT_EQ(errLog().last(), "**  - 14:07:09  03/05/2024  Last Kettlewick Alarm: High Sample "
                               "Flow Rate");
    // Only once: the next quiet packet finds the box empty.
    acq::fill_vis_fields(ws);
    EXPECT_EQ(ws.fm_Gas_Chart.txt_message.text().count("Last Kettlewick Alarm"), 1);

    parse(Packet({{20, "255 "}}));
    acq::fill_vis_fields(ws);
    EXPECT_EQ(box.text(), "Unit is due for 5000 Hr Maintenance");
}

TEST_F(LiveFields, LogLinesCarryTheSerialTheClockAndCrLf) {
    ws.packet.UnitSerial = "KW-77";
    station::disply_text_alarms(ws, "DB Write Err: disk full  Err point: 4");
    station::write_function_log(ws, "Set The Depth 1500");
    EXPECT_EQ(folder.read("ERR_LOG.TXT"),
              "** KW-77 - 14:07:09  03/05/2024  DB Write Err: disk full  Err point: 4\r\n");
    EXPECT_EQ(folder.read("COMMAND_LOG.TXT"),
              "KW-77 14:07:09  03/05/2024 *** Set The Depth 1500\r\n");
    // Appended, never rewritten.
    station::write_function_log(ws, "second");
    EXPECT_TRUE(folder.read("COMMAND_LOG.TXT")
                    .endsWith("*** Set The Depth 1500\r\n"
                              "KW-77 14:07:09  03/05/2024 *** second\r\n"));
}

TEST_F(LiveFields, MessageBoxAddsLinesClearsOnEmptyAndIsBounded) {
    auto& box = ws.fm_Gas_Chart.txt_message;
    station::disply_text_alarms(ws, "one");
    station::disply_text_alarms(ws, "two");
    EXPECT_EQ(box.text(), "one\r\ntwo");
    station::disply_text_alarms(ws, "");
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(errLog().size(), 2); // the empty text logs nothing

    station::disply_text_alarms(ws, QString(3000, QChar('m')));
    EXPECT_EQ(box.text().size(), 3000);
    station::disply_text_alarms(ws, "z");
    EXPECT_EQ(box.text().size(), 2000);
    EXPECT_TRUE(box.text().endsWith("m\r\nz"));
}

TEST_F(LiveFields, TerminalIsCutTo8500AtThe9501stCharacter) {
    auto& box = ws.more_data.text_window;
    station::disply_text(ws, QString(9500, QChar('t')));
    EXPECT_EQ(box.text().size(), 9500);
    station::disply_text(ws, "X");
    EXPECT_EQ(box.text().size(), 8500);
    EXPECT_TRUE(box.text().endsWith("tX"));
}

TEST_F(LiveFields, ALogWhoseFolderIsGoneIsPassedOver) {
    Workstation gone(folder.path() + "/gone");
    station::disply_text_alarms(gone, "still shown");
    station::write_function_log(gone, "lost quietly");
    gone.packet.Gombri_data_array[acq::ERRTXT] = "5 ";
    acq::parse_err_str(gone);
    EXPECT_EQ(gone.fm_Gas_Chart.txt_message.text(), "still shown");
    EXPECT_EQ(gone.packet.Glast_alarm_text, "5 ");
    EXPECT_FALSE(QFileInfo::exists(folder.path() + "/gone"));
}

} // namespace
