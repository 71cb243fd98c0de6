// The rate of penetration rewritten by a whole-file lag run and after a
// renumbering.
#include "job_fixture.h"

using depthtest::JobTest;

TEST_F(JobTest, WithTheBoxTickedAWholeFileRunRewritesTheRateFromTheTimeEachFootTook) {
    // Six seconds a record; the depth moves on every 10 records, 60 s a foot;
    // record 25 is a new foot tick of the foot it is on.
    for (int i = 0; i < 40; ++i) {
        const double d = 500 + i / 10;
        save({.depth = i == 25 ? -d : d, .minFt = 9});
    }
    ws.fm_setup.ck_Fix_ROP.setValue(1);
    byTime();
    // Only a whole-file run does it.
    depth::RecalculateLag(ws, 400, 0, 0);
    EXPECT_EQ(at("MIN_FT", 39), 9);
    wholePass();
    EXPECT_EQ(ws.fm_setup.ck_Fix_ROP.value(), 0) << "the box is cleared after the run";
    const auto minFt = column("MIN_FT");
    const auto ftHr = column("FT_HR");
    // The first foot is taken as 1 min/ft, 1 ft/hr until the depth changes;
    // then 60 s / 60 = 1 min/ft and 60 ft/hr, the tick counting by its size.
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(num(minFt[i]), 1) << i;
        EXPECT_EQ(num(ftHr[i]), i < 10 ? 1 : 60) << i;
    }

    // A foot of no time takes a small rate, not a division by nothing.
    exec("UPDATE OMBRI_DB_010 SET DT = '2026-11-01 06:00:00'");
    ws.fm_setup.ck_Fix_ROP.setValue(1);
    wholePass();
    EXPECT_EQ(at("MIN_FT", 39), 0.0001);
}

TEST_F(JobTest, RateRecalculationTakesEachFootsTimeFromItsHoursMinutesAndSeconds) {
    // Records 6 s apart: 500 ft for records 0-4, 501 for 5-14, 502 from 15.
    for (int i = 0; i < 20; ++i)
        save({.depth = i < 5 ? 500.5 : i < 15 ? 501.5 : 502.5, .minFt = 100.0 + i});
    int32_t first = 0, last = 0, result = 0;
    depth::recalculate_rop(ws, first, last, result);
    const auto minFt = column("MIN_FT");
    // The first foot is not whole: left alone. From the first change on, each
    // record takes the rate in hand, which is the change record's own until
    // the next change (record 15, 60 s after record 5) makes it 1 min/ft.
    for (int i = 0; i < 20; ++i) EXPECT_EQ(num(minFt[i]), i < 5 ? 100 + i : i <= 15 ? 105 : 1) << i;
    EXPECT_EQ(result, 15);
}
