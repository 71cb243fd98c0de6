#pragma once
// The per-foot logic of the rate of penetration collection, on plain values:
// records go in one at a time, in packet order, and the depth arrays fill as
// feet are closed. Collect_ROP_Data feeds it from the job file.

#include "workstation/depth_state.h"

#include <QDateTime>
#include <array>
#include <optional>

namespace depth {

// One record as the collection reads it; a Null column is nullopt.
struct RopRecord {
    std::optional<double> depth; // DEPTH, with its sign
    std::optional<double> lagGu; // LAG_GU
    std::optional<double> gasUnits;
    bool badGas = false; // "*" in ERR_TXT
    // KW7001, KW7003, KW7005, KW7007
    std::array<std::optional<double>, 4> custom{};
    std::optional<double> gamma;
    std::optional<double> gammaLag;
    // C1, C2, C3, IC4, NC4, IC5, NC5
    std::array<std::optional<double>, 7> gas{};
    std::optional<double> data1;
    std::optional<double> minFt;
    std::optional<double> o2, co2, h2s;
    QDateTime dt;
};

// What the collection takes from the setup panel at the start of a run.
struct RopOptions {
    bool lagged = false;
    // Gains of C1 to NC5, in that order.
    std::array<double, 7> gains{1, 1, 1, 1, 1, 1, 1};
    // Oil indicator option, 0 (none) to 4.
    int oilIndicator = 0;
    // Gamma readings above the top of the gamma scale are noise.
    double gammaScaleMax = 100;
    // "Override WITS Gamma Lag Depth": the gamma's depth is always the
    // drilled foot less the manual gamma lag, whatever WITS says.
    bool gammaOverride = false;
    double manualGammaLag = 0;
};

class RopCollector {
  public:
    RopCollector(DepthState& arrays, const RopOptions& options);

    // The first record of the stretch sets the foot the run starts on.
    void start(const RopRecord& first);
    // One record: the lagged gas, the custom channels, a foot closed when
    // the record has crossed into another, and the running peaks.
    void take(const RopRecord& r);

    // Whether this record closes the foot being built: only then are its
    // rate, time and the other closing columns read.
    bool crosses(const RopRecord& r) const;

    int foot() const { return lastFoot_; }

  private:
    int nextFoot(const RopRecord& r) const;
    void closeFoot(int slot, const RopRecord& r);
    void resetFoot();

    DepthState& a_;
    RopOptions opt_;
    int foot_ = 0;
    int lastFoot_ = 0;
    double gasPeak_ = 0;
    double gammaPeak_ = 0;
    std::array<double, 7> gasPeaks_{};
};

// The whole foot of a depth: the absolute value of its whole part.
int WholeFoot(double depth);

} // namespace depth
