#pragma once
// The arithmetic of closing a foot: the oil indicator, the gas breakdown
// that stacks to the foot's peak, and the feet per hour of a rate.

#include <array>

namespace depth {

// The five light gases a foot's oil indicator is made of.
struct LightGases {
    double c1 = 0, c2 = 0, c3 = 0, ic4 = 0, nc4 = 0;
};

// The oil indicator by the option chosen on the setup panel (0 none, 1
// common, 2 Baroid, 3 Shell method, 4 Pixlar). A denominator of exactly 0 is
// replaced by a small number instead of failing.
double OilIndicator(int option, const LightGases& g);

// Each of the seven gases' share of the foot's peak gas units, gain
// weighted: the seven values add up to `gasPeak`. With no gas at all (the
// weighted sum 0 or less) every share is 0.
std::array<double, 7> Breakdown(const std::array<double, 7>& peaks,
                                const std::array<double, 7>& gains, double gasPeak);

// Feet per hour of a minutes-per-foot rate; 0 when the rate is 0 or less.
double FtHrOf(double minFt);

} // namespace depth
