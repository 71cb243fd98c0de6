#pragma once
// The zone rule of the lag: which of the six zone rows of the setup panel
// holds at a depth. Zone 1 is the fallback for everything above its end
// depth; a later zone whose start lies above the depth wins over an earlier
// one, and the end depths of zones 2 to 6 are never looked at.

#include <array>

namespace forms {
struct FmSetup;
}

namespace depth {

// How zone 1 is tested. The passes ask whether the depth lies above zone 1's
// end; the bottoms-up display asks whether it lies below zone 1's start.
enum class ZoneOne { EndAbove, StartBelow };

// The values of the six zone rows (elements 1 to 6; 0 and 7 unused), read
// through Val from the panel's boxes at the moment of the call.
struct ZoneRows {
    std::array<double, 8> start{};
    std::array<double, 8> end{};
    std::array<double, 8> strPer100Ft{};
    std::array<double, 8> minPer100Ft{};
};
ZoneRows ReadZoneRows(const forms::FmSetup& setup);

// The zone in force at `depth`, or 0 when no zone fits (the caller then
// keeps the factor it had).
int ZoneAt(const ZoneRows& z, double depth, ZoneOne rule);

} // namespace depth
