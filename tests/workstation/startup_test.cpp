// The start-up and exit of a whole workstation in a temporary program folder.
#include "acquisition/events.h"
#include "acquisition/startup.h"
#include "acquisition/timers.h"
#include "acquisition/workstation.h"
#include "program_folder.h"
#include "scripted_dialogs.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using testkit::ProgramFolder;
using testkit::ScriptedDialogs;

TEST(Startup, LeavesTheWorkstationReadyWithTheLinkDueInFiveSeconds) {
    ProgramFolder folder;
    ScriptedDialogs dialogs;
    Workstation ws(folder.path(), &dialogs);
    ASSERT_TRUE(acq::Form_Load(ws));
    EXPECT_FALSE(ws.rt.Gstarting_up);
    EXPECT_EQ(ws.rt.Glink_countdown, 5);
    EXPECT_EQ(ws.rt.Glink_mode, 1);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_comm1.backColor(), forms::color::Red);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.caption(), "WITS Disconnected");
    EXPECT_EQ(ws.rt.Gtable_name, "OMBRI_DB_010");
    EXPECT_EQ(ws.rt.autogen_dir, folder.path());
    EXPECT_TRUE(
        ws.fm_Gas_Chart.form.caption().startsWith(" Ombri Instruments Gas Chart  Version: "));
    // Every panel but the main screen starts hidden.
    for (forms::Panel* p : ws.panels()) {
        if (p != &ws.fm_Gas_Chart) {
            EXPECT_FALSE(p->form.visible()) << p->name().toStdString();
        }
    }
    // The refresh supervision runs from the end of the start-up on.
    EXPECT_TRUE(ws.timer("tmr_refresh")->isActive());
    EXPECT_FALSE(ws.timer("tmr_autogen")->isActive());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST(Startup, ASecondCopyInTheSameFolderIsRefusedWithTheBox) {
    ProgramFolder folder;
    ScriptedDialogs first, second;
    Workstation a(folder.path(), &first);
    ASSERT_TRUE(acq::Form_Load(a));
    Workstation b(folder.path(), &second);
    EXPECT_FALSE(acq::Form_Load(b));
    ASSERT_EQ(second.boxes.size(), 1u);
    EXPECT_EQ(second.boxes[0].title, "OOPS! COPY ALLREADY LOADED");
    EXPECT_TRUE(second.boxes[0].text.contains("There is already a copy of this program"));

    // Another folder is another job: it starts.
    ProgramFolder other;
    ScriptedDialogs third;
    Workstation c(other.path(), &third);
    EXPECT_TRUE(acq::Form_Load(c));
}

TEST(Startup, ExitAsksAndNoKeepsEverythingRunning) {
    ProgramFolder folder;
    ScriptedDialogs dialogs;
    Workstation ws(folder.path(), &dialogs);
    ASSERT_TRUE(acq::Form_Load(ws));
    ws.rt.Grefresh_count = 3;

    dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(acq::Form_Unload(ws));
    ASSERT_EQ(dialogs.boxes.size(), 1u);
    EXPECT_EQ(dialogs.boxes[0].title, "EXIT PROGRAM?");
    EXPECT_EQ(dialogs.boxes[0].text, "Are you sure you want to exit?");
    EXPECT_FALSE(ws.closing);
    EXPECT_TRUE(ws.timer("tmrDataArrival")->isActive());
    // The refresh countdown starts over even when the exit is refused.
    EXPECT_EQ(ws.rt.Grefresh_count, ws.rt.Grefresh_seconds);

    ws.more_data.form.setVisible(true);
    dialogs.answers.push_back(platform::Answer::Yes);
    EXPECT_TRUE(acq::Form_Unload(ws));
    EXPECT_TRUE(ws.closing);
    EXPECT_FALSE(ws.timer("tmrDataArrival")->isActive());
    EXPECT_FALSE(ws.more_data.form.visible());
}

TEST(Timers, EveryNamedTimerExistsWithItsPeriod) {
    ProgramFolder folder;
    Workstation ws(folder.path());
    const struct {
        const char* name;
        int ms;
    } expected[] = {{"tmrDataArrival", 200},  {"tmr_refresh", 1000},
                    {"tmr_delay", 100},       {"tmr_color_change", 100},
                    {"tmr_DB_ERROR", 10000},  {"tmr_recalc_lag", 6000},
                    {"tmr_save_ini", 60000},  {"tmr_stay_logged_in", 60000},
                    {"fm_help.Timer1", 2000}, {"tmr_lag_calc", 250},
                    {"tmr_alarm_mon", 1000},  {"tmr_calc_stats", 1000},
                    {"tmr_autogen", 1000},    {"fm_chro.Timer1", 100},
                    {"fm_chro.Timer2", 100},  {"tmr_WITSDataArrival", 200},
                    {"tmr_Serial_WITS", 100}, {"tmr_Send_WITS", 1000},
                    {"tmr_ROP_Timer", 1000},  {"tmr_Keep_WITS_Connected", 65000}};
    for (const auto& e : expected) {
        QTimer* t = ws.timer(e.name);
        ASSERT_NE(t, nullptr) << e.name;
        EXPECT_EQ(t->interval(), e.ms) << e.name;
    }
    EXPECT_EQ(acq::TimerTable().size(), std::size(expected));
}

TEST(Timers, DelaySecondsRunsTheLoopUntilTheTicksRunOut) {
    ProgramFolder folder;
    Workstation ws(folder.path());
    // With the loop's timers running, tmr_delay counts the tenths down and
    // other timers fire inside the wait.
    ws.StartTimers();
    int intakeTicks = 0;
    QObject::connect(ws.timer("tmrDataArrival"), &QTimer::timeout, [&] { ++intakeTicks; });
    QElapsedTimer clock;
    clock.start();
    acq::DelaySeconds(ws, 0.5);
    EXPECT_EQ(ws.rt.Gdelay_ticks, 0);
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_GE(intakeTicks, 1);
    ws.StopTimers();

    // Without running timers (a tool or a hand-ticked test) the wait still ends.
    acq::DelaySeconds(ws, 0.3);
    EXPECT_EQ(ws.rt.Gdelay_ticks, 0);

    // tmr_delay also shows the database lock.
    ws.rt.Gdb_busy = true;
    acq::tmr_delay_Timer(ws);
    EXPECT_EQ(ws.fm_Gas_Chart.lbl_lock_Level.caption(), "DB Busy");
    ws.rt.Gdb_busy = false;
    acq::tmr_delay_Timer(ws);
    EXPECT_EQ(ws.fm_Gas_Chart.lbl_lock_Level.caption(), "DB Ready");
}

TEST(Timers, SelectionLineFlickersOnlyWhileShown) {
    ProgramFolder folder;
    Workstation ws(folder.path());
    double draws[] = {0.0, 0.5, 0.999};
    int next = 0;
    ws.Rnd = [&] { return draws[next++ % 3]; };
    auto& line = ws.fm_Gas_Chart.ln_selecter;
    line.setForeColor(123);
    acq::tmr_color_change_Timer(ws);
    EXPECT_EQ(line.foreColor(), 123);
    line.setVisible(true);
    acq::tmr_color_change_Timer(ws);
    // Red 0, green 128, blue 255: red in the low byte.
    EXPECT_EQ(line.foreColor(), 0 | (128 << 8) | (255L << 16));
}
