// Two small jobs lagged whole and checked record by record against figures
// worked out by hand below. DATA1 carries the source record's MIN_FT, and
// every record's MIN_FT is made from its own number, so DATA1 names the
// source exactly.
#include "job_fixture.h"

#include <functional>

using depthtest::JobTest;
using depthtest::Packet;

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
            Packet p;
            p.depth = depthOf(i);
            p.minFt = MinFtOf(i);
            p.badGas = bad(i);
            save(p);
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
    // 300 records, pumps at 100 strokes a minute: each record adds 10, so
    // record i holds TOTAL_STROKES 10 (i + 1). Records 0 to 149 are at
    // 1000 ft, 150 to 299 at 1010 ft. One zone: 110 strokes per 100 ft, 1.1 a
    // foot. Record 100 has bad gas (never a source); record 250 too (lagged
    // all the same).
    depthOf = [](int i) { return i < 150 ? 1000.0 : 1010.0; };
    drill([](int i) { return i == 100 || i == 250; });
    strokesPass();

    // Work record 299: target = 3000 - 1010 x 1.1 = 1889. The newest record
    // at or below it is 187 (1880). The next search starts one below the
    // source, and the target falls by 10 a record, so record i takes
    // i - 112 ... until record 212, whose source would be 100: bad gas,
    // stepped over to 99. From there on every source is one further back:
    // i - 113 (record 211 would find 99 again, but the search starts at 98).
    // At 1000 ft the target is 10 (i + 1) - 1100, whose own source i - 110
    // lies above where the search starts, so i - 113 holds on down. Record
    // 113 finds record 0, the start of the table: the pass leaves without
    // writing 113, and 0 to 113 keep no lag. Sources from 150 up, at
    // 1010 ft, are those of work records 262 and up.
    expectSources(113, [](int i) { return i >= 213 ? i - 112 : i - 113; });
    // The newest record's source is what the instrument is told.
    EXPECT_EQ(ws.depth.Glag_depth_now, 1010);
    EXPECT_EQ(ws.more_data.lbl_current_lag_depth.caption(), "1010.0");
    EXPECT_FALSE(ws.db.Gdb_error);
}

TEST_F(HandJob, TimePassByHand) {
    // 300 records, record i at 160 + i / 20 ft (160.00 to 174.95). One zone:
    // 6.25 minutes per 100 ft, 0.0625 a foot: 10 minutes and a fraction at
    // every depth here, so 10 whole minutes, 100 records, with WITS up (no
    // line lag added). Record 150 has bad gas.
    depthOf = [](int i) { return 160 + i / 20.0; };
    drill([](int i) { return i == 150; });
    ws.fm_setup.txt_lag_min[1].setText("6.25");
    byTime();
    ws.wits.Gwits_alive = 30;
    wholePass();

    // The zone is looked at every 75 records (a random draw fixed at one
    // half of 150): at work records 299, 224 and 149. Each look walks back
    // 100 good records from the work record; between looks the source moves
    // one record a step and never lags more than 100 behind the work record.
    //  - 299: the walk ends at 199; source w - 100 from here.
    //  - 250: its source would be 150, bad gas: stepped over to 149. The
    //    next record pulls the source back to w - 100, so 249 takes 149 too.
    //  - 224 (a look): the walk from 224 counts 100 good records only by
    //    going to 123, over the bad 150. 223 is pulled back to 123 again.
    //  - 150 is bad gas itself: no time passes on it, so it keeps the
    //    source of 151 plus one... 51, where 151 had 51 too.
    //  - 149 (a look): the walk 149 to 50 has no bad gas: source 49.
    //  - 100 finds record 0: the pass ends without writing it.
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
    // 169.95 shown with one decimal: a tie, away from zero.
    EXPECT_EQ(ws.more_data.lbl_current_lag_depth.caption(), "170.0");
}
