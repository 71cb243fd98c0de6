// The per-foot collection on plain records: which slot a record feeds, what
// a closed foot holds, and the records that are refused.
#include "depth/rop_collector.h"

#include <gtest/gtest.h>
#include <memory>

using namespace depth;

namespace {

RopRecord Rec(double depth, double gas) {
    RopRecord r;
    r.depth = depth;
    r.gasUnits = gas;
    r.o2 = 20.9;
    return r;
}

class Collector : public ::testing::Test {
  protected:
    std::unique_ptr<DepthState> a = std::make_unique<DepthState>();

    void run(RopOptions o, const std::vector<RopRecord>& recs) {
        RopCollector c(*a, o);
        c.start(recs.front());
        for (const auto& r : recs) c.take(r);
    }
};

} // namespace

TEST_F(Collector, TheLimitAndNewFootTicks) {
    // 49990 is kept; 49991 and beyond are bad data and leave the foot where
    // it was, though they still count toward it.
    run({},
        {Rec(49989.5, 10), Rec(49990.2, 20), Rec(49991.0, 99), Rec(50500, 98), Rec(49989.0, 5)});
    EXPECT_EQ(a->RopGasPeak[49989], 10);
    EXPECT_EQ(a->RopGasPeak[49990], 99);
    EXPECT_EQ(a->RopMaxDepth, 49990);
    EXPECT_EQ(a->RopGasPeak[49991], 0);

    // -1200.7 and 1200.3 are the same foot: no foot is closed between them.
    a->clear();
    run({}, {Rec(1199.5, 5), Rec(-1200.7, 40), Rec(1200.3, 30), Rec(1201.0, 1)});
    EXPECT_EQ(a->RopGasPeak[1200], 40);
    EXPECT_EQ(a->RopGasPeak[1199], 5);
}

TEST_F(Collector, LaggedCollectionRunsOnLagDepthAndBadGasAddsNoLagGas) {
    RopOptions o;
    o.lagged = true;
    auto lag = [](double depth, double lagGu, double gas, bool bad = false) {
        RopRecord r = Rec(depth, gas);
        r.lagGu = lagGu;
        r.badGas = bad;
        return r;
    };
    auto noLag = Rec(1100.5, 95);
    noLag.lagGu = std::nullopt; // a Null lag leaves the foot as it was
    run(o, {lag(1100, 1000.2, 50), lag(1100.2, 1000.6, 70, true), noLag,
            lag(1100.7, 1001.4, 90, true), lag(1101, 1001.8, 20), lag(1101.5, 1002.1, 5)});
    // Good gas at lag depth 1000 peaked at 50: the bad 70 is not the lag gas.
    EXPECT_EQ(a->RopLagGas[1000], 50);
    EXPECT_EQ(a->RopGasPeak[1000], 95) << "the Null lag's gas stays on foot 1000";
    // The bad record still moved the foot, whose peak it makes: 1001 holds
    // 90 and 20.
    EXPECT_EQ(a->RopLagGas[1001], 20);
    EXPECT_EQ(a->RopGasPeak[1001], 90);
}

TEST_F(Collector, CustomChannelsGoToTheFootBeingDrilledAndGammaToItsOwnDepth) {
    RopOptions o;
    o.gammaScaleMax = 150;
    auto r1 = Rec(700.1, 1);
    r1.custom[0] = 12.5;
    r1.custom[2] = 3.0;
    r1.gamma = 80.0;
    r1.gammaLag = 650.7; // WITS puts the reading at 650 ft
    auto r2 = Rec(700.6, 1);
    r2.custom[0] = std::nullopt; // Null keeps the last value met
    r2.gamma = 200.0;            // above the scale: noise
    r2.gammaLag = 650.9;
    auto r3 = Rec(701.2, 1);
    r3.custom[0] = 14.0; // belongs to 700: it is read before the foot closes
    run(o, {r1, r2, r3});
    EXPECT_EQ(a->RopKW7001[700], 14);
    EXPECT_EQ(a->RopKW7005[700], 3);
    EXPECT_EQ(a->RopO2[700], 20.9);
    EXPECT_EQ(a->RopGamma[650], 80);
    EXPECT_EQ(a->RopGamma[700], 0);

    // With the override the reading sits the manual gamma lag above the
    // drilled foot.
    a->clear();
    o.gammaOverride = true;
    o.manualGammaLag = 45;
    run(o, {r1, r2, r3});
    EXPECT_EQ(a->RopGamma[655], 80);
}
