#pragma once
// One draw of the strip chart's rows: hour block after hour block down the
// canvas (up it when flipped), each row its curve segments, ticks, tags
// and labels. Inside the chart only.

#include "workstation/workstation.h"

#include <array>
#include <vector>

namespace chart {

struct Curve;

// Control n of a control array, the array grown to hold it (index 0 stays
// unused, as the arrays on the screen have it).
template <class T> T& Slot(std::vector<T>& controls, int n) {
    if (static_cast<int>(controls.size()) <= n) controls.resize(n + 1);
    return controls[n];
}

// The depth mark of a row left of the plot: every new whole foot a tick,
// every fifth numbered, and "NF" for a foot the geolograph never marked.
// The first row of a block has none.
void DepthTick(Workstation& ws, station::Canvas& g, double depth, double y, int row);

class Strip {
  public:
    Strip(Workstation& ws, station::Canvas& g);
    void run();

  private:
    bool row(int i, double step);
    bool pastEnd() const;
    double X(double value, const config::ChartScale& s) const;
    void fillTables(int i);
    void tenMinuteLine();
    void curves(int i);
    void rawTrace(int i);
    void seedCValues();
    void cValues(int i);
    void gasUnits(int i);
    void hourLabel(int i);
    void statusTicks(int i);
    void peakTag(int i);
    void textBox(int i);

    Workstation& ws_;
    ChartState& c_;
    const HourBlock& b_;
    station::Canvas& g_;
    const forms::FmSetup& s_;
    const bool flipped_;
    const double zoom_;
    double tenMinutes_ = 240;

    double y_ = 0;
    double prevY_ = 0;
    double curY_ = 0;
    int tableY_ = 0;
    int32_t lastTextId_ = -1;

    std::vector<const Curve*> plain_;
    bool showGas_ = false;
    bool showRaw_ = false;
    bool showC_ = false;
    bool bold_ = false;
    std::array<bool, 7> cShown_{};
    std::array<long, 7> cColour_{};
    std::array<double, 7> cPrev_{};
    // The coarse copy of the gas trace: segments since the last line
    // control, and where that one ended.
    int gasSegments_ = 0;
    double lineX_ = -1, lineY_ = 0;
};

} // namespace chart
