// The start-up and exit of a whole workstation in a temporary program folder,
// and its timers.
#include "acquisition/main_loop.h"
#include "acquisition/startup.h"
#include "test_station.h"
#include "workstation/events.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using Bench = testkit::Station;
using testkit::ScriptedDialogs;

TEST(Startup, LeavesTheWorkstationReadyAndNoToTheExitKeepsItRunning) {
    Bench b;
    Workstation& ws = b.ws;
    ASSERT_TRUE(acq::Form_Load(ws));
    // The link is due in five seconds.
    EXPECT_EQ(ws.link.Glink_countdown, 5);
    EXPECT_EQ(ws.link.Glink_mode, 1);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_comm1.backColor(), forms::color::Red);
    EXPECT_EQ(ws.fm_Gas_Chart.cmd_WITS_info.caption(), "WITS Disconnected");
    EXPECT_EQ(ws.db.Gtable_name, "OMBRI_DB_010");
    EXPECT_EQ(ws.products.autogen_dir, b.folder.path());
    EXPECT_TRUE(
        ws.fm_Gas_Chart.form.caption().startsWith(" Ombri Instruments Gas Chart  Version: "));
    // Every panel but the main screen starts hidden.
    for (forms::Panel* p : ws.panels())
        EXPECT_TRUE(p == &ws.fm_Gas_Chart || !p->form.visible()) << p->name().toStdString();
    // Every timer is built with its period; those that run from the start
    // run, and the refresh supervision from the end of the start-up on.
    for (const station::TimerDef& def : ws.timerDefs()) {
        const QTimer* t = ws.timer(def.name);
        ASSERT_NE(t, nullptr) << def.name;
        EXPECT_EQ(t->interval(), def.periodMs) << def.name;
        EXPECT_EQ(t->isActive(), def.runsFromStart || QString(def.name) == "tmr_refresh")
            << def.name;
    }
    EXPECT_TRUE(b.dialogs.boxes.empty());

    // No to the exit question keeps it running, the refresh countdown
    // started over; the question itself and a Yes are the screen suite's.
    ws.chart.Grefresh_count = 3;
    b.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(acq::Form_Unload(ws));
    EXPECT_FALSE(ws.closing);
    EXPECT_TRUE(ws.timer("tmrDataArrival")->isActive());
    EXPECT_EQ(ws.chart.Grefresh_count, ws.chart.Grefresh_seconds);
}

TEST(Startup, ASecondCopyInTheSameFolderIsRefusedWithTheBox) {
    Bench first;
    ASSERT_TRUE(acq::Form_Load(first.ws));
    ScriptedDialogs second;
    Workstation b(first.folder.path(), &second);
    EXPECT_FALSE(acq::Form_Load(b));
    ASSERT_EQ(second.boxes.size(), 1u);
    EXPECT_EQ(second.boxes[0].title, "OOPS! COPY ALLREADY LOADED");
    EXPECT_TRUE(second.boxes[0].text.contains("There is already a copy of this program"));

    // Another folder is another job: it starts.
    Bench other;
    EXPECT_TRUE(acq::Form_Load(other.ws));
}

TEST(Timers, DelaySecondsRunsTheLoopUntilTheTicksRunOut) {
    Bench b;
    Workstation& ws = b.ws;
    // With the loop's timers running, tmr_delay counts the tenths down and
    // other timers fire inside the wait.
    ws.StartTimers();
    int intakeTicks = 0;
    QObject::connect(ws.timer("tmrDataArrival"), &QTimer::timeout, [&] { ++intakeTicks; });
    QElapsedTimer clock;
    clock.start();
    station::DelaySeconds(ws, 0.5);
    EXPECT_EQ(ws.loop.Gdelay_ticks, 0);
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_GE(intakeTicks, 1);
    ws.StopTimers();

    // Without running timers (a tool or a hand-ticked test) the wait still ends.
    station::DelaySeconds(ws, 0.3);
    EXPECT_EQ(ws.loop.Gdelay_ticks, 0);

    // tmr_delay also shows the database lock.
    ws.db.Gdb_busy = true;
    acq::tmr_delay_Timer(ws);
    EXPECT_EQ(ws.fm_Gas_Chart.lbl_lock_Level.caption(), "DB Busy");
    ws.db.Gdb_busy = false;
    acq::tmr_delay_Timer(ws);
    EXPECT_EQ(ws.fm_Gas_Chart.lbl_lock_Level.caption(), "DB Ready");
}

TEST(Timers, SelectionLineFlickersOnlyWhileShown) {
    Bench b;
    Workstation& ws = b.ws;
    double draws[] = {0.0, 0.5, 0.999};
    int next = 0;
    ws.Rnd = [&] { return draws[next++ % 3]; };
    auto& line = ws.fm_Gas_Chart.ln_selecter;
    line.setForeColor(123);
    acq::tmr_color_change_Timer(ws);
    EXPECT_EQ(line.foreColor(), 123);
    line.setVisible(true);
    acq::tmr_color_change_Timer(ws);
    EXPECT_NE(line.foreColor(), 123);
}
