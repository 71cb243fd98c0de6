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

TEST_F(JobTest, TheSearchStopsAtACounterJumpFromWhereItStarted) {
    // 0-59 count from 40000, 60-79 pumps off, 80-139 count from 0 again.
    // Target: count - 125. MIN_FT is the record's number: DATA1 names each
    // source.
    ws.depth.Gtotal_strokes = 40000;
    int n = 0;
    for (; n < 60; ++n) save({.depth = 100, .minFt = double(n)});
    ws.depth.Gtotal_strokes = 0;
    for (; n < 80; ++n) save({.depth = 100, .minFt = double(n), .spm = 0});
    for (; n < 140; ++n) save({.depth = 100, .minFt = double(n)});
    strokesPass("125");
    const auto data1 = column("DATA1");
    // Record 80 + k counts 10 (k + 1). Work record 139: 600 - 125 = 475,
    // source 126; each record before takes the one before: w - 13.
    EXPECT_EQ(num(data1[139]), 126);
    // Record 93 (140 strokes, target 15) takes 80 (10). The search for 92
    // (target 5) starts at 79, whose count is 0: it steps over the pumps-off
    // records and stops at 59, 40600 strokes from where it started, the
    // first record beyond the jump. 91 (target -5) searches from 58 on the
    // far side, finds nothing, and the pass ends.
    EXPECT_EQ(num(data1[93]), 80);
    EXPECT_EQ(num(data1[92]), 59);
    EXPECT_TRUE(data1[91].isNull());
}

TEST_F(JobTest, JumpsOfCounterAndDepthAreReportedOncePerPlaceAndOnlyOnceLagging) {
    // Records 0-59 count from 0, 60-199 from 20000, all at 100 ft but record
    // 180, a tick. The first work record (21400) is far from the "last"
    // count of 0, but nothing is lagged yet; work record 59 (600, after
    // 20010) is the one place of the counter. The tick's target lies above
    // its own count, and the search restarts at the work record before it
    // (181), which it takes.
    for (int i = 0; i < 60; ++i) save({.depth = 100, .minFt = double(i)});
    ws.depth.Gtotal_strokes = 20000;
    for (int i = 60; i < 200; ++i) save({.depth = i == 180 ? -100.0 : 100.0, .minFt = double(i)});
    strokesPass();
    EXPECT_EQ(logged("Sudden Strokes counter change\r\nRecalculate lag for whole DB to fix"), 1);
    EXPECT_EQ(logged("Sudden depth change at -100"), 1);
    EXPECT_EQ(logged("Sudden depth change at 100"), 1);
    EXPECT_EQ(at("DATA1", 180), 181) << "DATA1 names the source: MIN_FT is the record's number";
    // Beyond both the pass goes on.
    EXPECT_EQ(at("LAG_GU", 179), 100);
    EXPECT_EQ(at("LAG_GU", 59), 100);
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
