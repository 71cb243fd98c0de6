#pragma once
// What the lag engine and the rate of penetration collection keep for the
// run: the depth arrays (one slot per whole foot), their bounds, the zone
// factors the lag passes read, the line lag and the stroke total, and the
// bottoms-up figures of the setup panel.

#include <QDateTime>
#include <array>
#include <cstdint>
#include <vector>

namespace depth {

// Slots 0 to 50000 by whole foot. The depth track and the LAS writers count
// on exactly this many.
constexpr int kDepthSlots = 50001;
// The deepest foot a record may put into the arrays; anything deeper is
// taken as bad data.
constexpr int kDeepestFoot = 49990;

using DepthArray = std::vector<double>;

// The twenty-one arrays, in their order. A slot holds a number only where a
// foot was closed; every other slot is 0.
struct DepthArrays {
    DepthArray RopMinFt = DepthArray(kDepthSlots);
    DepthArray RopFtHr = DepthArray(kDepthSlots);
    DepthArray RopGasPeak = DepthArray(kDepthSlots);
    // The closing record's DT as a day number (see RopTimeFromDate).
    DepthArray RopTime = DepthArray(kDepthSlots);
    DepthArray RopO2 = DepthArray(kDepthSlots);
    DepthArray RopCO2 = DepthArray(kDepthSlots);
    DepthArray RopH2S = DepthArray(kDepthSlots);
    DepthArray RopKW7001 = DepthArray(kDepthSlots);
    DepthArray RopKW7003 = DepthArray(kDepthSlots);
    DepthArray RopKW7005 = DepthArray(kDepthSlots);
    DepthArray RopKW7007 = DepthArray(kDepthSlots);
    DepthArray RopC1 = DepthArray(kDepthSlots);
    DepthArray RopC2 = DepthArray(kDepthSlots);
    DepthArray RopC3 = DepthArray(kDepthSlots);
    DepthArray RopIC4 = DepthArray(kDepthSlots);
    DepthArray RopNC4 = DepthArray(kDepthSlots);
    DepthArray RopIC5 = DepthArray(kDepthSlots);
    DepthArray RopNC5 = DepthArray(kDepthSlots);
    DepthArray RopGamma = DepthArray(kDepthSlots);
    DepthArray RopLagGas = DepthArray(kDepthSlots);
    DepthArray RopOilInd = DepthArray(kDepthSlots);

    // Every array, in the order above, for the jobs that treat them alike.
    std::array<DepthArray*, 21> all() {
        return {&RopMinFt,  &RopFtHr,   &RopGasPeak, &RopTime,   &RopO2,    &RopCO2,    &RopH2S,
                &RopKW7001, &RopKW7003, &RopKW7005,  &RopKW7007, &RopC1,    &RopC2,     &RopC3,
                &RopIC4,    &RopNC4,    &RopIC5,     &RopNC5,    &RopGamma, &RopLagGas, &RopOilInd};
    }
    void clear() {
        for (DepthArray* a : all()) std::fill(a->begin(), a->end(), 0.0);
    }
};

// A date in RopTime is a day number counted from 30 December 1899, the
// fraction being the time of day: 0 stands for "no record fed this foot".
double RopTimeFromDate(const QDateTime& dt);
QDateTime RopTimeToDate(double days);

struct DepthState : DepthArrays {
    // Lowest and highest foot closed since the arrays were last rebuilt.
    int32_t RopMinDepth = 100000;
    int32_t RopMaxDepth = 0;
    // The highest packet number taken into the arrays.
    int32_t RopLastPacket = 0;
    // The way a geolograph renumbering walks, set by op_renum: 0 up hole
    // (towards older records), 1 down hole.
    int RenumDirection = 0;
    // Set by whatever changes the records under the arrays (a whole lag
    // pass, a geolograph edit, another file): the next chart draw rebuilds.
    bool RopRebuild = false;

    // Strokes and minutes per foot of lag zones 1 to 6 (0 and 7 unused),
    // refreshed from the setup panel by tmr_lag_calc; the passes read them.
    std::array<double, 8> GLagStrPerFt{};
    std::array<double, 8> GLagMinPerFt{};

    // Off bottom by hand (1), on bottom by hand (2), or as the depths say (0).
    double Goff_bottom_mode = 0;
    // The line lag: its length, its running count, and whether the gas now
    // at the detector belongs to the hole.
    double Gline_lag_seconds = 120;
    double Gline_lag_count = 120;
    bool Gline_lag_ok = true;
    double Gtotal_strokes = 0;
    // The lag depth sent to the instrument.
    double Glag_depth_now = 0;
    // Seconds on the current foot and the two before it.
    double Grop_seconds_0 = 0;
    double Grop_seconds_1 = 0;
    double Grop_seconds_2 = 0;
    double Glast_whole_foot = 0;

    double GBottomsUpStrokes = 0;
    double GLagMinutes = 0;
    // GBottomsUpMinutes: shown on the setup panel and read by the data viewer.
    double bottomsUpMinutes = 0;
};

} // namespace depth
