// The strokes pass at its edges, on job files written by the record writer.
#include "job_fixture.h"

using depthtest::JobTest;

TEST_F(JobTest, PassesThatLagNothing) {
    // No strokes at all: no record is lagged and the lag depth stands.
    byStrokes();
    for (int i = 0; i < 50; ++i) save({.depth = 500 + i * 0.1, .spm = 0});
    ws.depth.Glag_depth_now = 777;
    wholePass();
    EXPECT_EQ(lagged(), 0);
    EXPECT_EQ(ws.depth.Glag_depth_now, 777);

    // 10000 ft at 1.1 strokes a foot needs 11000 strokes; the newest record
    // has 5000: target -6000, nothing from the hole is up yet.
    ws.depth.Gtotal_strokes = 4970;
    for (int i = 0; i < 3; ++i) save({.depth = 10000});
    wholePass();
    EXPECT_EQ(lagged(), 0);
    EXPECT_EQ(ws.depth.Glag_depth_now, 0);
}

TEST_F(JobTest, JumpsOfCounterAndDepthAreReportedOncePerPlaceAndStopTheSearch) {
    // Records 0-59 count from 0, 60-69 have the pumps off (no count), 70-209
    // count from 40000; all at 100 ft but record 190, a tick. MIN_FT is the
    // record's number: DATA1 names each source.
    for (int i = 0; i < 60; ++i) save({.depth = 100, .minFt = double(i)});
    ws.depth.Gtotal_strokes = 0;
    for (int i = 60; i < 70; ++i) save({.depth = 100, .minFt = double(i), .spm = 0});
    ws.depth.Gtotal_strokes = 40000;
    for (int i = 70; i < 210; ++i) save({.depth = i == 190 ? -100.0 : 100.0, .minFt = double(i)});
    strokesPass();
    // The first work record (41400) is far from the "last" count of 0, but
    // nothing is lagged yet: work record 59 (600, after 40010) is the one
    // place of the counter.
    EXPECT_EQ(logged("Sudden Strokes counter change\r\nRecalculate lag for whole DB to fix"), 1);
    EXPECT_EQ(logged("Sudden depth change at -100"), 1);
    EXPECT_EQ(logged("Sudden depth change at 100"), 1);
    // The tick's target lies above its own count: the search restarts at the
    // work record before it (191), which it takes.
    EXPECT_EQ(at("DATA1", 190), 191);
    EXPECT_EQ(at("LAG_GU", 189), 100);
    // The search for 59 (target 490) starts at 70, steps over the records
    // with no count, and stops at 59, 39410 strokes from where it started.
    EXPECT_EQ(at("DATA1", 59), 59);
    EXPECT_EQ(at("LAG_GU", 58), 100) << "the pass goes on past the jump";
}

TEST_F(JobTest, ADepthRangePassStartsAtOrBelowItsTopAndEndsPastItsFootAndClearingZeroesAll) {
    // 4000 ft on, 10 ft a record; no lag to speak of (a zone of 0 strokes),
    // so each lagged record names itself. 500 records: the clearing takes
    // more than one batch.
    for (int i = 0; i < 500; ++i) save({.depth = 4000.0 + 10 * i});
    ws.fm_setup.txt_str_per_100ft[1].setText("0");
    ws.fm_setup.txt_recalc_lag_from.setText("5000");
    ws.fm_setup.txt_recalc_lag_to.setText("6000");
    byStrokes();
    depth::cmd_recalc_lag_Click(ws, 1);
    const auto lag = column("LAG_GU");
    for (int i = 0; i < 500; ++i) {
        const double depth = 4000.0 + 10 * i;
        SCOPED_TRACE(depth);
        // From the newest record at or below 6000 (record 200) down to the
        // first below 5000 (record 99, at 4990), which is written too.
        if (depth <= 6000 && depth >= 4990)
            EXPECT_EQ(num(lag[i]), depth);
        else
            EXPECT_TRUE(lag[i].isNull());
    }
    // The button repaired the strokes first and asks for the depth arrays
    // again.
    EXPECT_EQ(logged("Total Strokes Fixed"), 1);
    EXPECT_TRUE(ws.depth.RopRebuild);

    depth::cmd_Clear_Lag_Click(ws);
    for (const char* c : {"LAG_GU", "DATA1"})
        for (const auto& v : column(c)) EXPECT_EQ(num(v), 0.0);
    EXPECT_FALSE(ws.db.Gdb_busy);
}

TEST_F(JobTest, TheRoutinePassLagsTheNewest400AndAFailedPassKeepsWhatItWrote) {
    for (int i = 0; i < 600; ++i) save({.depth = 800});
    ws.fm_setup.txt_str_per_100ft[1].setText("0");
    byStrokes();
    // The file busy: no pass.
    ws.db.Gdb_busy = true;
    depth::tmr_recalc_lag_Timer(ws);
    EXPECT_EQ(lagged(), 0);
    ws.db.Gdb_busy = false;
    depth::tmr_recalc_lag_Timer(ws);
    EXPECT_EQ(lagged(), 400);
    EXPECT_TRUE(at("LAG_GU", 200));
    EXPECT_FALSE(ws.fm_help.txt_help.text().contains("Please wait"))
        << "the routine pass is unseen";

    // A Null depth ends a whole pass through its handler; records 101 to
    // 199, lagged before the failure, stay lagged.
    exec("UPDATE OMBRI_DB_010 SET DEPTH = NULL WHERE PACKET_NUM = 1101");
    wholePass();
    EXPECT_EQ(logged("Recalculate Lag Err: Invalid use of Null  Errpt: 13"), 1);
    EXPECT_TRUE(ws.db.Gdb_error);
    EXPECT_FALSE(ws.db.Gdb_busy);
    EXPECT_FALSE(ws.fm_help.form.visible());
    EXPECT_EQ(lagged(), 499);
}
