// Each condition of the monitor just below, at and above its threshold, the
// order in which their messages overwrite each other, and the drill off
// count.
#include "alarm_fixture.h"

#include <functional>

using alarmtest::AlarmTest;
using forms::FmSetup;

namespace {

class Conditions : public AlarmTest {};

TEST_F(Conditions, EachConditionBelowAtAndAboveItsThreshold) {
    struct Case {
        const char* what;
        forms::Control FmSetup::*sw;
        std::function<void(Workstation&)> set;
        bool raised;
        const char* message;
    };
    auto depth = [](const char* d) {
        return [d](Workstation& w) { w.packet.Gombri_data_array[acq::DEPTH] = d; };
    };
    auto gas = [](const char* g) {
        return [g](Workstation& w) { w.packet.Gombri_data_array[acq::GASUNITS] = g; };
    };
    auto bit = [](double b) { return [b](Workstation& w) { w.wits.Gwits_values[0] = b; }; };
    auto lag = [](const char* l) {
        return [l](Workstation& w) { w.more_data.lbl_current_lag_depth.setCaption(l); };
    };
    auto footSeconds = [](int s) {
        return [s](Workstation& w) {
            w.packet.Gombri_data_array[acq::DEPTH] = "4000.5";
            w.alarms.alarm_foot = 4000;
            w.alarms.alarm_foot_seconds = s - 1; // the tick adds one
        };
    };
    auto nextFoot = [](const char* d) {
        return [d](Workstation& w) {
            w.alarms.alarm_foot = 4001;
            w.packet.Gombri_data_array[acq::DEPTH] = d;
        };
    };
    auto alarmNumber = [](int n) {
        return [n](Workstation& w) { w.packet.Glast_alarm_number = n; };
    };
    auto witsButton = [](long c) {
        return [c](Workstation& w) { w.fm_Gas_Chart.cmd_WITS_info.setBackColor(c); };
    };
    auto linkButton = [](long c) {
        return [c](Workstation& w) { w.fm_Gas_Chart.cmd_comm1.setBackColor(c); };
    };
    using forms::color::Green;
    using forms::color::Orange;
    using forms::color::Red;
    const Case cases[] = {
        {"instrument alarm 0", &FmSetup::ck_alarm_on_kw_al, alarmNumber(0), false, ""},
        {"instrument alarm 1", &FmSetup::ck_alarm_on_kw_al, alarmNumber(1), true, ""},
        {"WITS green", &FmSetup::ck_lost_WITS, witsButton(Green), false, ""},
        {"WITS red", &FmSetup::ck_lost_WITS, witsButton(Red), true, "WITS Disconnected"},
        {"WITS orange", &FmSetup::ck_lost_WITS, witsButton(Orange), true, "WITS Disconnected"},
        {"link green", &FmSetup::ck_lost_kw_con, linkButton(Green), false, ""},
        {"link red", &FmSetup::ck_lost_kw_con, linkButton(Red), true, "Kettlewick Disconnected"},
        {"next foot below", &FmSetup::ch_next_ft, nextFoot("4000.9"), false, ""},
        {"next foot at", &FmSetup::ch_next_ft, nextFoot("4001"), true, "Foot Change Alarm"},
        {"next foot above", &FmSetup::ch_next_ft, nextFoot("4002.5"), true, "Foot Change Alarm"},
        {"long foot 1499 s", &FmSetup::ck_long_ft, footSeconds(1499), false, ""},
        {"long foot 1500 s", &FmSetup::ck_long_ft, footSeconds(1500), false, ""},
        {"long foot 1501 s", &FmSetup::ck_long_ft, footSeconds(1501), true, "Long Foot Alarm"},
        {"bit below", &FmSetup::ck_al_bit_depth, bit(4999.9), false, ""},
        {"bit at", &FmSetup::ck_al_bit_depth, bit(5000), true, "Bit Depth Alarm"},
        {"bit above", &FmSetup::ck_al_bit_depth, bit(5000.1), true, "Bit Depth Alarm"},
        {"hole below", &FmSetup::ck_al_depth, depth("4999.9"), false, ""},
        {"hole at", &FmSetup::ck_al_depth, depth("5000"), true, "Hole Depth Alarm"},
        {"hole above", &FmSetup::ck_al_depth, depth("5000.2"), true, "Hole Depth Alarm"},
        {"lag below", &FmSetup::ck_al_lag_depth, lag("2499.9"), false, ""},
        {"lag at", &FmSetup::ck_al_lag_depth, lag("2500.0"), true, "Lag Depth Alarm"},
        {"lag above", &FmSetup::ck_al_lag_depth, lag("2500.1"), true, "Lag Depth Alarm"},
        {"gas below", &FmSetup::ck_high_gu, gas("1499.9"), false, ""},
        {"gas at", &FmSetup::ck_high_gu, gas("1500"), false, ""},
        {"gas at with a fraction", &FmSetup::ck_high_gu, gas("1500.9"), false, ""},
        {"gas above", &FmSetup::ck_high_gu, gas("1501"), true, "High Gas Units Alarm"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        allOff();
        clearBox();
        (ws.fm_setup.*c.sw).setChecked(true);
        c.set(ws);
        EXPECT_EQ(pass(), c.raised);
        EXPECT_EQ(box().text(), c.raised ? c.message : "");
        EXPECT_EQ(box().backColor(), c.raised ? forms::color::Orange : forms::color::White);
        c.set(ws); // the same again with the switch off: never
        (ws.fm_setup.*c.sw).setChecked(false);
        EXPECT_FALSE(pass());
        ws.packet.Glast_alarm_number = 0;
    }
    // The hole's threshold is taken whole too: 5000.7 alarms at 5000.2.
    allOff();
    ws.fm_setup.ck_al_depth.setChecked(true);
    ws.fm_setup.txt_al_depth.setText("5000.7");
    field(acq::DEPTH) = "5000.2";
    EXPECT_TRUE(pass());
}

TEST_F(Conditions, TheTimeAlarmIsStrictlyAfterAndStaysTrue) {
    ws.fm_setup.ck_timedate.setChecked(true);
    now = QDateTime(QDate(2024, 3, 5), QTime(17, 59, 59));
    EXPECT_FALSE(pass());
    now = QDateTime(QDate(2024, 3, 5), QTime(18, 0, 0));
    EXPECT_FALSE(pass());
    now = QDateTime(QDate(2024, 3, 5), QTime(18, 0, 1));
    EXPECT_TRUE(pass());
    EXPECT_EQ(box().text(), "Time Alarm");
    now = now.addDays(3);
    EXPECT_TRUE(pass());
    EXPECT_EQ(ws.fm_setup.lbl_al_timedate.caption(), "Next Alarm at: 03/05/2024 18:00:00");

    // Unticked: the box clears and the alarm stops.
    ws.fm_setup.ck_timedate.setChecked(false);
    alarms::ck_timedate_Click(ws);
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(box().backColor(), forms::color::White);
    EXPECT_FALSE(pass());

    // A typing error is logged once and the old time stays in force.
    ws.fm_setup.txt_al_date.setText("31 Foo 2024");
    for (int i = 0; i < 3; ++i) alarms::Set_Alarm_Time(ws);
    EXPECT_EQ(ws.alarms.alarm_time, QDateTime(QDate(2024, 3, 5), QTime(18, 0, 0)));
    EXPECT_EQ(folder.read("ERR_LOG.TXT").count("Set Alarm Time Err: "), 1);
}

TEST_F(Conditions, TheLastConditionInOrderIsTheOneShownWithOneSound) {
    ws.fm_setup.ck_lost_WITS.setChecked(true);
    ws.fm_setup.ck_high_gu.setChecked(true);
    ws.fm_Gas_Chart.cmd_WITS_info.setBackColor(forms::color::Red);
    field(acq::GASUNITS) = "2000";
    const long sounds = ws.alarms.soundFailures;
    EXPECT_TRUE(pass());
    EXPECT_EQ(box().text(), "High Gas Units Alarm");
    // No wave file: the box is set all the same, and one sound was tried.
    EXPECT_EQ(ws.alarms.soundFailures - sounds, 1);

    // The instrument's alarm alone: orange, no text.
    allOff();
    clearBox();
    ws.fm_setup.ck_alarm_on_kw_al.setChecked(true);
    ws.packet.Glast_alarm_number = 3;
    EXPECT_TRUE(pass());
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(box().backColor(), forms::color::Orange);
    EXPECT_EQ(ws.alarms.soundFailures - sounds, 2);

    // A pass in which nothing holds leaves the box as it is.
    ws.fm_Gas_Chart.txt_KW_err.setText("High Gas Units Alarm");
    ws.packet.Glast_alarm_number = 0;
    EXPECT_FALSE(pass());
    EXPECT_EQ(box().text(), "High Gas Units Alarm");
    EXPECT_EQ(box().backColor(), forms::color::Orange);
}

TEST_F(Conditions, DrillOffCountsTheNewestFeetAtTheRateOrFaster) {
    ws.fm_setup.ck_drill_off.setChecked(true);
    ws.fm_setup.txt_drill_off_ft.setText("3");
    ws.fm_setup.txt_drill_off_rop.setText("2.5");
    // One foot per pass, with its minutes per foot.
    auto foot = [&](int d, const char* minFt) {
        field(acq::DEPTH) = QString::number(d);
        field(acq::MINFT) = minFt;
        return pass();
    };
    // One foot known: memory not filled yet, i stops at 1, and N - 1 = 2.
    EXPECT_FALSE(foot(4001, "2.0"));
    // Two fast feet: i = 2.
    EXPECT_TRUE(foot(4002, "2.5")); // exactly at R counts as fast
    EXPECT_EQ(box().text(), "Drill Off / Drilling Break");
    // A slow foot is now the newest: i = 0.
    EXPECT_FALSE(foot(4003, "2.6"));
    EXPECT_FALSE(foot(4004, "1.0"));
    EXPECT_TRUE(foot(4005, "1.0"));
    // The same foot again adds nothing.
    EXPECT_TRUE(foot(4005, "9.9"));
    EXPECT_DOUBLE_EQ(ws.alarms.drill_off_rates[0], 1.0);
    EXPECT_DOUBLE_EQ(ws.alarms.drill_off_rates[2], 2.6);

    // Out of range counts are corrected in the box.
    ws.fm_setup.txt_drill_off_ft.setText("0");
    EXPECT_TRUE(pass());
    EXPECT_EQ(ws.fm_setup.txt_drill_off_ft.text(), "1");
    ws.fm_setup.txt_drill_off_ft.setText("500");
    EXPECT_FALSE(pass());
    EXPECT_EQ(ws.fm_setup.txt_drill_off_ft.text(), "100");

    // With N = 1 it fires in every pass, even with nothing remembered.
    ws.fm_setup.ck_drill_off.setChecked(false);
    alarms::ck_drill_off_Click(ws);
    EXPECT_EQ(box().text(), "");
    for (int i = 0; i <= 103; ++i) EXPECT_EQ(ws.alarms.drill_off_rates[i], 0) << i;
    ws.fm_setup.ck_drill_off.setChecked(true);
    ws.fm_setup.txt_drill_off_ft.setText("1");
    EXPECT_TRUE(pass());
    EXPECT_TRUE(pass());
}

TEST_F(Conditions, FootChangeAndLongFootShareTheirReference) {
    field(acq::DEPTH) = "4000.6";
    ws.fm_setup.ch_next_ft.setChecked(true);
    alarms::ch_next_ft_Click(ws);
    EXPECT_DOUBLE_EQ(ws.alarms.alarm_foot, 4001);
    EXPECT_FALSE(pass());
    field(acq::DEPTH) = "4001.2";
    EXPECT_TRUE(pass());
    // Once reached it repeats until unticked, the reference never moving.
    field(acq::DEPTH) = "4005";
    EXPECT_TRUE(pass());
    EXPECT_DOUBLE_EQ(ws.alarms.alarm_foot, 4001);

    // Long foot ticked too: its step moves the reference to the foot in
    // progress, so the foot change test holds in every pass.
    ws.fm_setup.ck_long_ft.setChecked(true);
    alarms::ck_long_ft_Click(ws);
    EXPECT_DOUBLE_EQ(ws.alarms.alarm_foot, 4005);
    EXPECT_EQ(ws.alarms.alarm_foot_seconds, 0);
    field(acq::DEPTH) = "4006";
    EXPECT_TRUE(pass());
    EXPECT_DOUBLE_EQ(ws.alarms.alarm_foot, 4006);
    EXPECT_EQ(box().text(), "Foot Change Alarm");

    // Unticking the foot change clears the box and the reference.
    ws.fm_setup.ch_next_ft.setChecked(false);
    alarms::ch_next_ft_Click(ws);
    EXPECT_EQ(box().text(), "");
    EXPECT_DOUBLE_EQ(ws.alarms.alarm_foot, 0);
    // The foot clock is capped.
    ws.alarms.alarm_foot_seconds = 100000;
    alarms::tmr_alarm_mon_Timer(ws);
    EXPECT_EQ(ws.alarms.alarm_foot_seconds, 100000);
}

} // namespace
