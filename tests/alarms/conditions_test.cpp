// The monitor's conditions either side of their thresholds, and their switches.
#include "alarm_fixture.h"

#include <algorithm>
#include <functional>

using alarmtest::AlarmTest;
using forms::FmSetup;

namespace {

class Conditions : public AlarmTest {};

TEST_F(Conditions, EachConditionJustShortOfItsThresholdAndAtIt) {
    using forms::color::Green;
    struct Case {
        forms::Control FmSetup::*sw;
        std::function<void(double)> set;
        double shortOf, at;
        const char* message;
    };
    auto packet = [this](int i) { return [this, i](double v) { field(i) = QString::number(v); }; };
    // The threshold is taken whole, as the depth is.
    ws.fm_setup.txt_al_depth.setText("5000.7");
    const Case cases[] = {
        {&FmSetup::ck_alarm_on_kw_al, [&](double v) { ws.packet.Glast_alarm_number = int(v); }, 0,
         1, ""},
        {&FmSetup::ck_lost_WITS,
         [&](double v) { ws.fm_Gas_Chart.cmd_WITS_info.setBackColor(long(v)); }, Green,
         forms::color::Orange, "WITS Disconnected"},
        {&FmSetup::ck_lost_kw_con,
         [&](double v) { ws.fm_Gas_Chart.cmd_comm1.setBackColor(long(v)); }, Green,
         forms::color::Red, "Kettlewick Disconnected"},
        {&FmSetup::ch_next_ft,
         [&](double v) {
             ws.alarms.alarm_foot = 4001;
             field(acq::DEPTH) = QString::number(v);
         },
         4000.9, 4001, "Foot Change Alarm"},
        {&FmSetup::ck_long_ft,
         [&](double v) {
             field(acq::DEPTH) = "4000.5";
             ws.alarms.alarm_foot = 4000;
             ws.alarms.alarm_foot_seconds = int(v) - 1; // the tick adds one
         },
         1500, 1501, "Long Foot Alarm"},
        {&FmSetup::ck_al_bit_depth, [&](double v) { ws.wits.Gwits_values[0] = v; }, 4999.9, 5000,
         "Bit Depth Alarm"},
        {&FmSetup::ck_al_depth, packet(acq::DEPTH), 4999.9, 5000.2, "Hole Depth Alarm"},
        {&FmSetup::ck_al_lag_depth,
         [&](double v) { ws.more_data.lbl_current_lag_depth.setCaption(QString::number(v)); },
         2499.9, 2500, "Lag Depth Alarm"},
        // Strictly above, whole gas units.
        {&FmSetup::ck_high_gu, packet(acq::GASUNITS), 1500.9, 1501, "High Gas Units Alarm"},
        // Strictly after the alarm time.
        {&FmSetup::ck_timedate,
         [&](double v) { now = QDateTime(QDate(2024, 3, 5), QTime(18, 0, 0)).addSecs(qint64(v)); },
         0, 1, "Time Alarm"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        for (bool reached : {false, true}) {
            allOff();
            clearBox();
            ws.packet.Glast_alarm_number = 0;
            (ws.fm_setup.*c.sw).setChecked(true);
            c.set(reached ? c.at : c.shortOf);
            EXPECT_EQ(pass(), reached);
            EXPECT_EQ(box().text(), reached ? c.message : "");
            EXPECT_EQ(box().backColor(), reached ? forms::color::Orange : forms::color::White);
        }
        // The same again with the switch off: never.
        c.set(c.at);
        (ws.fm_setup.*c.sw).setChecked(false);
        EXPECT_FALSE(pass());
    }
}

TEST_F(Conditions, ABadAlarmTimeIsLoggedOnceAndTheOldOneStays) {
    alarms::Set_Alarm_Time(ws);
    ws.fm_setup.txt_al_date.setText("31 Foo 2024");
    for (int i = 0; i < 3; ++i) alarms::Set_Alarm_Time(ws);
    EXPECT_EQ(ws.fm_setup.lbl_al_timedate.caption(), "Next Alarm at: 03/05/2024 18:00:00");
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

    // A pass in which nothing holds leaves the box as it is.
    allOff();
    EXPECT_FALSE(pass());
    EXPECT_EQ(box().text(), "High Gas Units Alarm");
}

TEST_F(Conditions, UntickingASwitchClearsTheBoxExceptWhileStartingUp) {
    struct Case {
        forms::Control FmSetup::*sw;
        void (*click)(Workstation&);
    };
    const Case cases[] = {{&FmSetup::ck_high_gu, alarms::ck_high_gu_Click},
                          {&FmSetup::ck_timedate, alarms::ck_timedate_Click},
                          {&FmSetup::ck_long_ft, alarms::ck_long_ft_Click},
                          {&FmSetup::ch_next_ft, alarms::ch_next_ft_Click},
                          {&FmSetup::ck_drill_off, alarms::ck_drill_off_Click}};
    for (const Case& c : cases) {
        ws.fm_Gas_Chart.txt_KW_err.setText("High Gas Units Alarm");
        ws.alarms.alarmMonitorText = "High Gas Units Alarm";
        (ws.fm_setup.*c.sw).setChecked(false);
        c.click(ws);
        EXPECT_EQ(box().text(), "") << (ws.fm_setup.*c.sw).name().toStdString();
        EXPECT_TRUE(ws.alarms.alarmMonitorText.isEmpty());
    }
    // While the configuration is read, the handlers leave the box alone.
    ws.loop.Gstarting_up = true;
    ws.fm_Gas_Chart.txt_KW_err.setText("kept");
    alarms::ck_long_ft_Click(ws);
    EXPECT_EQ(box().text(), "kept");
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
    EXPECT_TRUE(foot(4002, "2.5")); // exactly at R counts as fast
    EXPECT_EQ(box().text(), "Drill Off / Drilling Break");
    // A slow foot is now the newest: i = 0.
    EXPECT_FALSE(foot(4003, "2.6"));
    // The same foot again adds nothing, so one fast foot after it is not two.
    EXPECT_FALSE(foot(4003, "1.0"));
    EXPECT_FALSE(foot(4004, "1.0"));

    // Out of range counts are corrected in the box; with N = 1 every pass
    // fires.
    ws.fm_setup.txt_drill_off_ft.setText("0");
    EXPECT_TRUE(pass());
    EXPECT_EQ(ws.fm_setup.txt_drill_off_ft.text(), "1");
    ws.fm_setup.txt_drill_off_ft.setText("500");
    EXPECT_FALSE(pass());
    EXPECT_EQ(ws.fm_setup.txt_drill_off_ft.text(), "100");

    // Unticked, the remembered feet are forgotten.
    ws.fm_setup.ck_drill_off.setChecked(false);
    alarms::ck_drill_off_Click(ws);
    const auto& rates = ws.alarms.drill_off_rates;
    EXPECT_TRUE(std::all_of(rates.begin(), rates.end(), [](double r) { return r == 0; }));
}

TEST_F(Conditions, FootChangeAndLongFootShareTheirReference) {
    field(acq::DEPTH) = "4000.6";
    ws.fm_setup.ch_next_ft.setChecked(true);
    alarms::ch_next_ft_Click(ws);
    EXPECT_FALSE(pass()) << "armed for the next foot";
    // Ticking long foot restarts its count and moves the reference to the
    // foot in progress, which the foot change test then holds for reached.
    ws.alarms.alarm_foot_seconds = 5000;
    ws.fm_setup.ck_long_ft.setChecked(true);
    alarms::ck_long_ft_Click(ws);
    EXPECT_TRUE(pass());
    EXPECT_EQ(box().text(), "Foot Change Alarm");
}

} // namespace
