#include "depth/foot.h"

namespace depth {

namespace {
double NotZero(double d, double replacement) {
    return d == 0 ? replacement : d;
}
} // namespace

double OilIndicator(int option, const LightGases& g) {
    switch (option) {
    case 1:
        return (g.c3 + g.ic4 + g.nc4) / NotZero(g.c1, 0.0001);
    case 2:
        return (g.c1 + g.c2) / NotZero(g.c3 + g.ic4 + g.nc4, 0.0001);
    case 3:
        return 100 * (g.c2 + g.c3 + g.ic4 + g.nc4) /
               NotZero(g.c1 + g.c2 + g.c3 + g.ic4 + g.nc4, 0.000001);
    case 4:
        return (g.ic4 + g.nc4) / NotZero(g.c3, 0.0001);
    default:
        return 0;
    }
}

std::array<double, 7> Breakdown(const std::array<double, 7>& peaks,
                                const std::array<double, 7>& gains, double gasPeak) {
    std::array<double, 7> weighted{};
    double t = 0;
    for (std::size_t i = 0; i < weighted.size(); ++i) {
        weighted[i] = peaks[i] * gains[i];
        t += weighted[i];
    }
    std::array<double, 7> out{};
    if (t <= 0) return out;
    for (std::size_t i = 0; i < out.size(); ++i) out[i] = weighted[i] / t * gasPeak;
    return out;
}

double FtHrOf(double minFt) {
    return minFt > 0 ? 60 / minFt : 0;
}

} // namespace depth
