#pragma once
// What the lag engine and the rate of penetration collection keep.

namespace depth {

struct DepthState {
    // Bottoms-up figures shown on the viewer.
    double bottomsUpMinutes = 0;
};

} // namespace depth
