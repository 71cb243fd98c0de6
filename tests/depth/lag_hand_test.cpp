// Two small jobs lagged whole and checked record by record against figures
// worked out by hand. DATA1 carries the source's MIN_FT, made from the
// source's own number: DATA1 names the source exactly.
#include "job_fixture.h"

#include <functional>

using depthtest::JobTest;

namespace {

double MinFtOf(int i) {
    return 1 + i / 100.0;
}

class HandJob : public JobTest {
  protected:
    std::function<double(int)> depthOf;

    // 300 records, record i at depthOf(i), bad gas where bad says.
    void drill(const std::function<bool(int)>& bad) {
        for (int i = 0; i < 300; ++i) {
            save({.depth = depthOf(i), .minFt = MinFtOf(i), .badGas = bad(i)});
        }
    }
    // Records up to lastBare keep no lag; every later one names its source.
    void expectSources(int lastBare, const std::function<int(int)>& sourceOf) {
        const auto lag = column("LAG_GU");
        const auto data1 = column("DATA1");
        ASSERT_EQ(lag.size(), 300u);
        for (int i = 0; i < 300; ++i) {
            SCOPED_TRACE(i);
            if (i <= lastBare) {
                EXPECT_TRUE(lag[i].isNull());
                EXPECT_TRUE(data1[i].isNull());
                continue;
            }
            const int source = sourceOf(i);
            ASSERT_TRUE(num(lag[i]) && num(data1[i]));
            EXPECT_NEAR(*num(lag[i]), depthOf(source), 1e-9);
            EXPECT_NEAR(*num(data1[i]), MinFtOf(source), 1e-9);
        }
    }
};

} // namespace

TEST_F(HandJob, StrokesPassByHand) {
    // Pumps at 100: record i holds TOTAL_STROKES 10 (i + 1). Records 0-149
    // at 1000 ft, 150-299 at 1010 ft; 1.1 strokes a foot. Records 100 and
    // 250 have bad gas: 100 is never a source, 250 is lagged all the same.
    depthOf = [](int i) { return i < 150 ? 1000.0 : 1010.0; };
    drill([](int i) { return i == 100 || i == 250; });
    strokesPass();

    // Record 299: target 3000 - 1010 x 1.1 = 1889, source 187 (1880). The
    // target falls by 10 a record, so record i takes i - 112 down to 213,
    // whose source 100 is bad gas and stepped over to 99; the search for the
    // next starts one below the source, so i - 113 from there on, across the
    // change of depth. Record 113 finds record 0, the start of the table:
    // the pass ends there, and 0 to 113 keep no lag.
    expectSources(113, [](int i) { return i >= 213 ? i - 112 : i - 113; });
    // The newest record's source is what the instrument is told.
    EXPECT_EQ(ws.depth.Glag_depth_now, 1010);
    EXPECT_EQ(ws.more_data.lbl_current_lag_depth.caption(), "1010.0");
    EXPECT_FALSE(ws.db.Gdb_error);
}

TEST_F(HandJob, TimePassByHand) {
    // Record i at 160 + i / 20 ft; 6.25 minutes per 100 ft: 10 minutes and
    // a fraction at every depth, so 100 records with WITS up. Record 150 has
    // bad gas.
    depthOf = [](int i) { return 160 + i / 20.0; };
    drill([](int i) { return i == 150; });
    ws.fm_setup.txt_lag_min[1].setText("6.25");
    byTime();
    ws.wits.Gwits_alive = 30;
    wholePass();

    // The zone is looked at every 75 records (the random draw fixed): at 299,
    // 224 and 149, each look walking back 100 good records; between looks the
    // source moves one record a step, never more than 100 behind. So w - 100,
    // except: 250, whose source 150 is bad, steps over to 149 (and 249 is
    // pulled back to it); 224's walk passes the bad 150 to reach 123 (and 223
    // is pulled back to it); 150, bad itself, takes no time: 51, as 151 did.
    // 100 finds record 0: the pass ends without writing it.
    expectSources(100, [](int w) {
        switch (w) {
        case 250:
            return 149;
        case 224:
        case 223:
            return 123;
        case 150:
            return 51;
        default:
            return w - 100;
        }
    });
    EXPECT_NEAR(ws.depth.Glag_depth_now, 160 + 199 / 20.0, 1e-9);

    // WITS down: the line lag's 120 s, 20 records, is added. A record too
    // close to the start for it keeps what the pass before gave it.
    ws.wits.Gwits_alive = 0;
    wholePass();
    EXPECT_NEAR(at("DATA1", 299).value_or(0), MinFtOf(179), 1e-9);
    EXPECT_NEAR(at("DATA1", 110).value_or(0), MinFtOf(10), 1e-9);
}
