// The zone rule and the arithmetic of a closed foot, on plain values.
#include "depth/foot.h"
#include "depth/rop_recalc.h"
#include "depth/zones.h"
#include "forms/fm_setup.h"

#include <gtest/gtest.h>

using namespace depth;

TEST(LagZones, ZoneOneByItsEndALaterStartedZoneWinsAndOtherEndsAreIgnored) {
    forms::FmSetup setup; // zone 1 ends at 30000, zones 2 to 6 blank
    ZoneRows z = ReadZoneRows(setup);
    EXPECT_EQ(ZoneAt(z, 10000, ZoneOne::EndAbove), 1);
    // The end itself is not above the depth.
    EXPECT_EQ(ZoneAt(z, 30000, ZoneOne::EndAbove), 0);

    setup.txt_Lag_Start_Depth[3].setText("5000");
    setup.txt_Lag_Start_Depth[2].setText("7000");
    // Zone 3 ends far above 6000 and 8000: end depths past zone 1 do not count.
    setup.txt_Lag_End_Depth[3].setText("5100");
    z = ReadZoneRows(setup);
    EXPECT_EQ(ZoneAt(z, 5000, ZoneOne::EndAbove), 1)
        << "a start equal to the depth is not below it";
    EXPECT_EQ(ZoneAt(z, 6000, ZoneOne::EndAbove), 3);
    // Both 2 and 3 have started; the later zone in the list wins, not the
    // deeper start.
    EXPECT_EQ(ZoneAt(z, 8000, ZoneOne::EndAbove), 3);
    // The sixth zone counts as well.
    setup.txt_Lag_Start_Depth[6].setText("9000");
    EXPECT_EQ(ZoneAt(ReadZoneRows(setup), 9500, ZoneOne::EndAbove), 6);

    // The bottoms-up rule tests zone 1 on its start instead.
    EXPECT_EQ(ZoneAt(ReadZoneRows(forms::FmSetup()), 40000, ZoneOne::StartBelow), 1);
}

TEST(ClosedFoot, OilIndicatorsByTheirFormulasAndZeroDenominators) {
    const LightGases g{10, 5, 2, 1, 1};
    EXPECT_EQ(OilIndicator(0, g), 0);
    EXPECT_DOUBLE_EQ(OilIndicator(2, g), 3.75);       // (10+5)/(2+1+1)
    EXPECT_DOUBLE_EQ(OilIndicator(3, g), 900.0 / 19); // 100*(5+2+1+1)/(10+5+2+1+1)
    EXPECT_DOUBLE_EQ(OilIndicator(4, g), 1);          // (1+1)/2

    // A denominator of exactly 0 is replaced, so the figure is large, not a
    // failure.
    EXPECT_DOUBLE_EQ(OilIndicator(1, LightGases{0, 5, 2, 1, 1}), 4 / 0.0001);
}

TEST(ClosedFoot, BreakdownStacksToThePeakWithGainsAndIsEmptyWithoutGas) {
    using Seven = std::array<double, 7>;
    // Weighted: 10*1, 5*2, 5*1 = 25 in all; a peak of 50 is split 20, 20, 10.
    EXPECT_EQ(Breakdown({10, 5, 5, 0, 0, 0, 0}, {1, 2, 1, 1, 1, 1, 1}, 50),
              (Seven{20, 20, 10, 0, 0, 0, 0}));
    // A gain of 0 on the only gas present leaves nothing to share out.
    EXPECT_EQ(Breakdown({4, 0, 0, 0, 0, 0, 0}, {0, 1, 1, 1, 1, 1, 1}, 75), Seven{});
    // No feet per hour from a rate below 0.
    EXPECT_EQ(FtHrOf(-2), 0);
}

TEST(ClosedFoot, FootMinutesReadBackFromHoursMinutesSecondsAndWrapAtADay) {
    // 25 hours read as "01:00:00".
    EXPECT_DOUBLE_EQ(FootMinutes(25 * 3600), 60);
    // A clock that went back by 90 s reads as 90 s.
    EXPECT_DOUBLE_EQ(FootMinutes(-90), 1.5);
}
