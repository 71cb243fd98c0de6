// The start-up and exit of a whole workstation in a temporary program folder.
#include "acquisition/main_loop.h"
#include "acquisition/startup.h"
#include "test_station.h"

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

TEST(Timers, TheDelayTickShowsTheDataBaseLock) {
    Bench b;
    b.ws.db.Gdb_busy = true;
    acq::tmr_delay_Timer(b.ws);
    EXPECT_EQ(b.ws.fm_Gas_Chart.lbl_lock_Level.caption(), "DB Busy");
    b.ws.db.Gdb_busy = false;
    acq::tmr_delay_Timer(b.ws);
    EXPECT_EQ(b.ws.fm_Gas_Chart.lbl_lock_Level.caption(), "DB Ready");
}
