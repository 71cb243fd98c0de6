#pragma once
// The minutes a foot took, as MIN_FT holds them.

#include <cstdint>

namespace depth {

// Minutes of a foot that took `seconds`, read back from its "HH:MM:SS" text
// as the rate recalculation does: a foot of 24 hours or more wraps and counts
// only what is left over a whole day.
double FootMinutes(int64_t seconds);

} // namespace depth
