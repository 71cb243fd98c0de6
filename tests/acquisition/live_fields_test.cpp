// The viewer labels, the alarm word, the boxes and the two logs read back
// from the program folder.
#include "acq_fixture.h"

#include "acquisition/live_fields.h"
#include "acquisition/parser.h"
#include "workstation/help_box.h"

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
    QStringList errLog() const { return folder.read("ERR_LOG.TXT").split("\r\n"); }
};

TEST_F(LiveFields, AChangedAlarmFieldIsLoggedOnceWithAllItsNumbers) {
    // Field 20, then the lines the log holds after it.
    const struct {
        const char* alarm;
        int lines;
        const char* last;
    } steps[] = {
        {"5 12 ", 1, "14:07:09  03/05/2024 ** HIGH SAMPLE FLOW RATE / HIGH GAS UNITS / "},
        {"5 12 ", 1, nullptr}, // the same text again: nothing more
        {"19 ", 2, "14:07:09  03/05/2024 ** UNKNOWN ALARM / "},
        {"0 ", 2, nullptr}, // no alarm: remembered, not logged
        // A bare number with no blank behind it gives an empty line.
        {"7", 3, ""},
    };
    for (const auto& s : steps) {
        setAlarm(s.alarm);
        acq::parse_err_str(ws);
        EXPECT_EQ(ws.packet.Glast_alarm_text, s.alarm);
        const QStringList log = errLog().mid(0, errLog().size() - 1);
        EXPECT_EQ(log.size(), s.lines) << s.alarm;
        if (s.last) {
            EXPECT_EQ(log.last(), s.last);
        }
    }
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
    } rows[] = {{"1000", Green}, {"2500", Yellow}, {"2500.5", Red}};
    for (const auto& r : rows) {
        ws.packet.Gombri_data_array[acq::GASUNITS] = r.gas;
        acq::fill_vis_fields(ws);
        EXPECT_EQ(ws.more_data.lbl_GasUnits.foreColor(), r.colour) << r.gas;
    }
}

TEST_F(LiveFields, FootSecondsAndBottomsUp) {
    ws.depth.Grop_seconds_0 = 12.4;
    ws.depth.Grop_seconds_1 = 3;
    ws.depth.Grop_seconds_2 = 0;
    ws.depth.bottomsUpMinutes = 45.25;
    acq::fill_vis_fields(ws);
    EXPECT_EQ(ws.more_data.lbl_Time_Since_Last_Rop_01.caption(), "12 3 0");
    EXPECT_EQ(ws.more_data.lbl_Bottoms_Up.caption(), "45.3");
}

TEST_F(LiveFields, BitDepthShowsOffBottomOnlyWithWitsUp) {
    auto& v = ws.more_data;
    ws.packet.Gombri_data_array[acq::DEPTH] = "1000";
    // Bit depth, WITS life, then the frame and its colour. The whole part
    // plus 2 ft must reach the depth; 10 ft and less is no bit depth.
    const struct {
        const char* bit;
        int alive;
        const char* frame;
        long colour;
    } rows[] = {{"995.0", 10, "Bit Depth  OFF BOTTOM", Orange},
                {"998.9", 10, "Bit Depth", Black},
                {"500.0", 0, "Bit Depth", Black},
                {"9.5", 10, "Bit Depth", Black}};
    for (const auto& r : rows) {
        v.lbl_bit_depth.setCaption(r.bit);
        ws.wits.Gwits_alive = r.alive;
        acq::fill_vis_fields(ws);
        EXPECT_EQ(look(v.frameOf("lbl_bit_depth").caption(), v.lbl_bit_depth.backColor()),
                  look(r.frame, r.colour))
            << r.bit;
    }
}

TEST_F(LiveFields, AlarmBoxShowsTheFirstNumberAndLeavesALastLineWhenCleared) {
    auto& box = ws.fm_Gas_Chart.txt_KW_err;
    parse(Packet({{20, "5 12 "}}));
    acq::fill_vis_fields(ws);
    EXPECT_EQ(look(box.text(), box.backColor()), look("High Sample Flow Rate", Red));

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
    // Only once: the next quiet packet finds the box empty.
    acq::fill_vis_fields(ws);
    EXPECT_EQ(ws.fm_Gas_Chart.txt_message.text(), "Last Kettlewick Alarm: High Sample Flow Rate");

    parse(Packet({{20, "255 "}}));
    acq::fill_vis_fields(ws);
    EXPECT_EQ(box.text(), "Unit is due for 5000 Hr Maintenance");
}

// The command log's line is checked by the WITS file's missing-file test.
TEST_F(LiveFields, TheErrorLogLineCarriesTheSerialTheClockAndCrLf) {
    ws.packet.UnitSerial = "KW-77";
    station::disply_text_alarms(ws, "DB Write Err: disk full  Err point: 4");
    EXPECT_EQ(folder.read("ERR_LOG.TXT"),
              "** KW-77 - 14:07:09  03/05/2024  DB Write Err: disk full  Err point: 4\r\n");
}

TEST_F(LiveFields, EachBoxIsCutToItsBoundAndTheEmptyTextClearsTheTwoThatAddLines) {
    using Writer = void (*)(Workstation&, const QString&);
    // Writer, its box, a text that fills it to the bound, the size after one
    // more character, the tail then, and whether an empty text clears it.
    const struct {
        Writer write;
        forms::Control& box;
        int fill;
        int bound;
        int cut;
        const char* tail;
        bool emptyClears;
    } boxes[] = {
        {&station::help_msg, ws.fm_help.txt_help, 5998, 6000, 5000, "a\r\nb\r\n", true},
        {&station::disply_text_alarms, ws.fm_Gas_Chart.txt_message, 3000, 3000, 2000, "a\r\nb",
         true},
        {&station::disply_text, ws.more_data.text_window, 9500, 9500, 8500, "ab", false},
    };
    for (const auto& b : boxes) {
        b.write(ws, QString(b.fill, QChar('a')));
        EXPECT_EQ(b.box.text().size(), b.bound);
        b.write(ws, "b");
        EXPECT_EQ(b.box.text().size(), b.cut);
        EXPECT_TRUE(b.box.text().endsWith(b.tail)) << b.tail;
        b.write(ws, "");
        EXPECT_EQ(b.box.text().isEmpty(), b.emptyClears) << b.tail;
    }
    EXPECT_EQ(errLog().size(), 3); // two lines: the empty text logs nothing
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
