#pragma once
// The curves of the strip chart: which box switches each, where its values
// are in the hour block, its words and colours in the key, and its scale.
// Inside the chart only.

#include "forms/control.h"
#include "workstation/settings.h"

#include <QString>
#include <span>
#include <vector>

class Workstation;

namespace chart {

struct HourBlock;

enum class CurveId {
    RawCg,
    H2S,
    OilInd,
    CValues,
    ExtAmps,
    CgTemp,
    CgPrs,
    DcVolts,
    AcVolts,
    Temp,
    HrmTemp,
    BitDepth,
    O2,
    Wits,
    Custom1,
    Custom2,
    Custom3,
    Custom4,
    CO2,
    ExhPrs,
    Vac,
    Lph,
    GasUnits,
};

struct Curve {
    CurveId id;
    // The box (or option) that shows the curve.
    bool (*shown)(const Workstation& ws);
    // Its values, one a block row; none for the C values and the raw trace.
    const std::vector<double>* (*values)(const HourBlock& b);
    config::ChartScale& (*scale)(Workstation& ws);
    const char* legend; // nullptr: the custom WITS name, or no key at all
    long curveColor;
    long legendColor;
    const char* format;
    // The scale's lower end is left out of the grid numbers.
    bool numbersFromZero;
    // Only joined from the second row of a block.
    bool skipsFirstRow;
};

// In the order they are drawn; the gas units last, on top of the rest.
std::span<const Curve> CurvesInDrawOrder();
// In the order of the grid's number rows and of the key.
std::vector<const Curve*> CurvesInKeyOrder();
// The words of a curve in the key.
QString LegendOf(const Workstation& ws, const Curve& c);
// Sets the scale's PixelsPerUnit so that its span fills `span` twips; a span
// of nothing divides by one.
void FitScale(config::ChartScale& s, double span);

// The panels' colours and those only the chart draws in.
namespace colour {
using forms::color::Black;
using forms::color::Green;
using forms::color::Grey;
using forms::color::Orange;
using forms::color::Red;
constexpr long Blue = 0xFF0000;
constexpr long Magenta = 0xFF00FF;
constexpr long Cyan = 0xFFFF00;
constexpr long DarkGreen = 53248;
constexpr long LightGrey = 0xF4F4F4;
constexpr long HourTag = 16576;
constexpr long BarGrey = 0x808080;
} // namespace colour

} // namespace chart
