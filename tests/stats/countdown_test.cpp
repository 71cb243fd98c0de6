// The countdown, the Statistics tab's controls and the run as a job.
#include "stats_fixture.h"

#include <QFile>
#include <QTimer>

namespace {

using namespace statstest;

TEST_F(StatsJob, MinutesUnderTwentyAreTwentyAndEveryChangeRestartsTheCount) {
    ws.loop.Gstarting_up = false;
    auto& box = ws.fm_setup.txt_autotally_minutes;
    struct Case {
        const char* typed;
        const char* kept;
        int32_t countdown;
    };
    const Case cases[] = {{"19.99", "20", 1200}, {"20.5", "20.5", 1230}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        ws.settings.stats_countdown = 7;
        box.setText(c.typed);
        stats::txt_autotally_minutes_Commit(ws);
        EXPECT_EQ(box.text(), c.kept);
        EXPECT_EQ(ws.settings.stats_countdown, c.countdown);
        EXPECT_EQ(ws.fm_setup.lbl_Stats_Countdown.caption(), QString::number(c.countdown));
    }
    // A change restarts the count from the box as it stands; while the
    // settings are being read nothing happens.
    box.setText("3");
    stats::txt_autotally_minutes_Change(ws);
    EXPECT_EQ(ws.settings.stats_countdown, 180);
    ws.loop.Gstarting_up = true;
    box.setText("4");
    stats::txt_autotally_minutes_Change(ws);
    stats::txt_autotally_minutes_Commit(ws);
    EXPECT_EQ(ws.settings.stats_countdown, 180);
    EXPECT_EQ(box.text(), "4");
}

TEST_F(StatsJob, TheCountdownRunsTheReportWhenItEndsAndStartsAgain) {
    add(Repeat(20, On(1000)));
    ws.fm_setup.txt_autotally_minutes.setText("30");
    ws.settings.stats_countdown = 2;
    stats::tmr_calc_stats_Timer(ws);
    EXPECT_EQ(ws.fm_setup.lbl_Stats_Countdown.caption(), "1");
    EXPECT_FALSE(QFile::exists(report));
    stats::tmr_calc_stats_Timer(ws);
    EXPECT_TRUE(QFile::exists(report));
    EXPECT_EQ(ws.settings.stats_countdown, 1800);
    // A run by the countdown puts its information box away when done.
    EXPECT_FALSE(ws.fm_help.form.visible());

    // A count that ends during a run waits for it.
    QFile::remove(report);
    ws.stats.running = true;
    ws.settings.stats_countdown = 1;
    stats::tmr_calc_stats_Timer(ws);
    EXPECT_EQ(ws.settings.stats_countdown, 1);
    EXPECT_FALSE(QFile::exists(report));
    ws.stats.running = false;

    // At 0 the count stays there: no report every second.
    ws.settings.stats_countdown = 0;
    stats::tmr_calc_stats_Timer(ws);
    EXPECT_EQ(ws.settings.stats_countdown, 0);
    EXPECT_FALSE(QFile::exists(report));

    // The button: the report at the next tick, its box left up.
    stats::cmd_calculate_stats_Click(ws);
    EXPECT_EQ(ws.settings.stats_countdown, 1);
    stats::tmr_calc_stats_Timer(ws);
    EXPECT_TRUE(QFile::exists(report));
    EXPECT_TRUE(ws.fm_help.form.visible());
}

TEST_F(StatsJob, TheEventLoopTurnsDuringARunAndTheTimersGoOn) {
    // Two passes over 100000 records.
    add(Repeat(100000, On(1000)));
    int turns = 0, mostBar = 0;
    bool sawRunning = false;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        ++turns;
        sawRunning = sawRunning || ws.stats.running;
        mostBar = std::max(mostBar, ws.fm_help.pgbar.value());
        // The countdown timer ticks inside the run as it would live.
        stats::tmr_calc_stats_Timer(ws);
    });
    ws.settings.stats_countdown = 500;
    tick.start(0);
    stats::Generate_Stats_Report(ws);
    tick.stop();
    EXPECT_TRUE(sawRunning);
    EXPECT_EQ(ws.settings.stats_countdown, 500 - turns);
    // The report only reads: it never holds the file's write lock.
    EXPECT_EQ(ws.loop.yieldsHoldingWriteLock, 0);
    // The bar went past half way with the tally and is back at rest.
    EXPECT_GT(mostBar, 50);
    EXPECT_EQ(ws.fm_help.pgbar.value(), 0);
    EXPECT_EQ(ws.fm_help.lbl_help.caption(), "Statistics and tally report");
}

TEST_F(StatsJob, BrowsingPicksTheReportFileAndTheBoxesKeepTheirNewestText) {
    // A cancelled browse keeps the name.
    dialogs.files = {folder.file("DB_CUE/DAILY.TXT"), ""};
    stats::cmd_autotally_browse_Click(ws);
    stats::cmd_autotally_browse_Click(ws);
    EXPECT_EQ(ws.fm_setup.txt_stats_filename.text(), folder.file("DB_CUE/DAILY.TXT"));
    EXPECT_EQ(dialogs.boxes.at(0).title, "SELECT *.TXT FILE FOR AUTOTALLY");

    // Status lines: past 8000 characters the last 7000 stay.
    for (int i = 0; i < 200; ++i)
        stats::Stats_Status(ws, QString("line %1 ").arg(i) + QString(40, 'x'));
    const QString s = ws.fm_setup.txt_stats.text();
    EXPECT_LE(s.size(), 8000);
    EXPECT_GE(s.size(), 7000);
    EXPECT_TRUE(s.endsWith("08:00:00 -- line 199 " + QString(40, 'x')));
    // The report box keeps its last 64000 characters, whatever the runs.
    ws.fm_setup.txt_stats_output.setText(QString(63990, 'o'));
    stats::Stats_Output_Line(ws, "0123456789");
    const QString o = ws.fm_setup.txt_stats_output.text();
    EXPECT_EQ(o.size(), 64000);
    EXPECT_TRUE(o.endsWith("o0123456789\r\n"));
}

} // namespace
