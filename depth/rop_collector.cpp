#include "depth/rop_collector.h"

#include "depth/foot.h"
#include "text/numbers.h"

#include <cmath>

namespace depth {

namespace {

double Or0(const std::optional<double>& v) {
    return v.value_or(0.0);
}

// A foot the arrays can hold; deeper ones are taken as bad data.
bool InRange(int foot) {
    return foot >= 0 && foot <= kDeepestFoot;
}

DepthArray& CustomArray(DepthState& a, std::size_t i) {
    DepthArray* arrays[4] = {&a.RopKW7001, &a.RopKW7003, &a.RopKW7005, &a.RopKW7007};
    return *arrays[i];
}

DepthArray& GasArray(DepthState& a, std::size_t i) {
    DepthArray* arrays[7] = {&a.RopC1,  &a.RopC2,  &a.RopC3, &a.RopIC4,
                             &a.RopNC4, &a.RopIC5, &a.RopNC5};
    return *arrays[i];
}

} // namespace

int WholeFoot(double depth) {
    const double f = std::fabs(text::Fix(depth));
    // Anything beyond the arrays reads as "too deep" rather than wrapping.
    return f > 1e9 ? 1000000000 : static_cast<int>(f);
}

RopCollector::RopCollector(DepthState& arrays, const RopOptions& options)
    : a_(arrays), opt_(options) {}

void RopCollector::start(const RopRecord& first) {
    // The run starts on the drilled foot of its first record; a lagged run
    // moves at once to that record's lag foot, if it has one.
    foot_ = lastFoot_ = WholeFoot(Or0(first.depth));
    foot_ = nextFoot(first);
    resetFoot();
}

int RopCollector::nextFoot(const RopRecord& r) const {
    // One beyond the arrays leaves the foot where it was.
    int foot = foot_;
    if (opt_.lagged) {
        if (r.lagGu) foot = WholeFoot(*r.lagGu);
    } else {
        foot = WholeFoot(Or0(r.depth));
    }
    return InRange(foot) ? foot : foot_;
}

bool RopCollector::crosses(const RopRecord& r) const {
    return nextFoot(r) != lastFoot_;
}

void RopCollector::take(const RopRecord& r) {
    // a. The gas seen at each lag depth, from good gas only.
    if (!r.badGas) {
        const int lagFoot = WholeFoot(Or0(r.lagGu));
        if (lagFoot != 0 && InRange(lagFoot) && Or0(r.gasUnits) > a_.RopLagGas[lagFoot])
            a_.RopLagGas[lagFoot] = Or0(r.gasUnits);
    }
    // b. The drilled foot.
    const int drillFoot = WholeFoot(Or0(r.depth));
    // c. The custom channels belong to the foot being drilled.
    if (InRange(lastFoot_))
        for (std::size_t i = 0; i < r.custom.size(); ++i)
            if (r.custom[i]) CustomArray(a_, i)[lastFoot_] = *r.custom[i];
    // d. The foot of this record.
    foot_ = nextFoot(r);
    // e. Crossing into another foot closes the one left.
    if (foot_ != lastFoot_) {
        closeFoot(lastFoot_, r);
        lastFoot_ = foot_;
    }
    // f. Peaks of the foot now being built.
    gasPeak_ = std::max(gasPeak_, Or0(r.gasUnits));
    if (r.gamma && *r.gamma > 0 && *r.gamma <= opt_.gammaScaleMax)
        gammaPeak_ = std::max(gammaPeak_, *r.gamma);
    int gammaFoot = r.gammaLag ? static_cast<int>(text::Fix(*r.gammaLag)) : 0;
    if (gammaFoot == 0 || opt_.gammaOverride)
        gammaFoot = static_cast<int>(drillFoot - text::Fix(opt_.manualGammaLag));
    // Only a foot that has had a reading writes: an empty one would wipe what
    // an earlier foot left at the same gamma depth.
    if (gammaFoot > 0 && gammaFoot <= kDeepestFoot && gammaPeak_ > 0)
        a_.RopGamma[gammaFoot] = gammaPeak_;
    // g. The gas peaks; the pentanes count only where the column is set.
    for (std::size_t i = 0; i < gasPeaks_.size(); ++i)
        if (r.gas[i]) gasPeaks_[i] = std::max(gasPeaks_[i], *r.gas[i]);
}

void RopCollector::closeFoot(int slot, const RopRecord& r) {
    if (!InRange(slot)) return;
    a_.RopMaxDepth = std::max(a_.RopMaxDepth, int32_t(slot));
    if (slot >= 1) a_.RopMinDepth = std::min(a_.RopMinDepth, int32_t(slot));
    a_.RopGasPeak[slot] = gasPeak_;
    a_.RopOilInd[slot] = OilIndicator(
        opt_.oilIndicator, {gasPeaks_[0], gasPeaks_[1], gasPeaks_[2], gasPeaks_[3], gasPeaks_[4]});
    const double rate = opt_.lagged && r.data1 ? *r.data1 : Or0(r.minFt);
    a_.RopMinFt[slot] = rate;
    a_.RopFtHr[slot] = FtHrOf(rate);
    const auto shares = Breakdown(gasPeaks_, opt_.gains, gasPeak_);
    for (std::size_t i = 0; i < shares.size(); ++i) GasArray(a_, i)[slot] = shares[i];
    a_.RopO2[slot] = Or0(r.o2);
    a_.RopCO2[slot] = Or0(r.co2);
    a_.RopH2S[slot] = Or0(r.h2s);
    a_.RopTime[slot] = RopTimeFromDate(r.dt);
    resetFoot();
}

void RopCollector::resetFoot() {
    gasPeak_ = 0;
    gammaPeak_ = 0;
    gasPeaks_.fill(0);
}

// Counted on the calendar, not on the clock, so that a change of summer time
// does not move a foot's time by an hour.
double RopTimeFromDate(const QDateTime& dt) {
    if (!dt.isValid()) return 0;
    static const QDate origin(1899, 12, 30);
    return double(origin.daysTo(dt.date())) + dt.time().msecsSinceStartOfDay() / 86400000.0;
}

QDateTime RopTimeToDate(double days) {
    static const QDate origin(1899, 12, 30);
    const double whole = std::floor(days);
    const auto ms = std::min(86399999LL, std::llround((days - whole) * 86400000.0));
    return QDateTime(origin.addDays(static_cast<qint64>(whole)),
                     QTime::fromMSecsSinceStartOfDay(static_cast<int>(ms)));
}

} // namespace depth
