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

TEST(Startup, LeavesTheWorkstationReadyRefusesASecondCopyAndNoToTheExitKeepsItRunning) {
    Bench b;
    Workstation& ws = b.ws;
    ASSERT_TRUE(acq::Form_Load(ws));
    for (forms::Panel* p : ws.panels())
        EXPECT_TRUE(p == &ws.fm_Gas_Chart || !p->form.visible()) << p->name().toStdString();
    // Those that run from the start run, and the refresh supervision from
    // the end of the start-up on.
    for (const station::TimerDef& def : ws.timerDefs()) {
        const QTimer* t = ws.timer(def.name);
        ASSERT_NE(t, nullptr) << def.name;
        EXPECT_EQ(t->interval(), def.periodMs) << def.name;
        EXPECT_EQ(t->isActive(), def.runsFromStart || QString(def.name) == "tmr_refresh")
            << def.name;
    }
    EXPECT_TRUE(b.dialogs.boxes.empty());

    // The box's words are folder_test's (install suite).
    ScriptedDialogs second;
    Workstation copy(b.folder.path(), &second);
    EXPECT_FALSE(acq::Form_Load(copy));
    ASSERT_EQ(second.boxes.size(), 1u);
    EXPECT_EQ(second.boxes[0].title, "OOPS! COPY ALLREADY LOADED");
    Bench other;
    EXPECT_TRUE(acq::Form_Load(other.ws)) << "another folder is another job";

    // No starts the refresh countdown over; the rest of the exit question is
    // views_test's.
    ws.chart.Grefresh_count = 3;
    b.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(acq::Form_Unload(ws));
    EXPECT_EQ(ws.chart.Grefresh_count, ws.chart.Grefresh_seconds);
}

TEST(Timers, DelaySecondsRunsTheLoopUntilTheTicksRunOut) {
    Bench b;
    Workstation& ws = b.ws;
    // Other timers fire inside the wait.
    ws.StartTimers();
    int intakeTicks = 0;
    QObject::connect(ws.timer("tmrDataArrival"), &QTimer::timeout, [&] { ++intakeTicks; });
    QElapsedTimer clock;
    clock.start();
    station::DelaySeconds(ws, 0.5);
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
