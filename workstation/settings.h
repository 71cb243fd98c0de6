#pragma once
// Settings that the configuration file keeps and that are not the state of
// a setup panel control: the chart's scales and view, the chromatograph
// gains, the curve colours, the control box position. They carry the names
// the chart and the chromatograph use for them.

#include <QString>
#include <cstdint>

namespace config {

// One curve's scale. PixelsPerUnit is worked out by the chart at each draw.
struct ChartScale {
    double ScaleMax = 0;
    double ScaleMin = 0;
    double PixelsPerUnit = 0;
};

struct Settings {
    // Scales with a text field of their own on the setup panel; the C values
    // share a copy of the gas units scale.
    ChartScale GasScale{150, 0};    // txt_gas_units
    ChartScale CValueScale{500, 0}; // copy of GasScale
    ChartScale RopScale{10, 0};     // txt_rop_scale
    ChartScale OilIndScale{100, 0}; // txt_oil_ind_scale
    ChartScale GammaScale{100, 0};  // txt_lag_gamma_scale
    ChartScale WitsScale{500, 0};   // txt_wits_scale, whole numbers

    // The chart view.
    double Zoom = 1.0;
    bool Flipped = false;
    double RopInchesPer100Ft = 1.0;
    double RopTwipsPerFoot = 14.4;
    QString Gbackground_file;
    long BackgroundColor = 0xFFFFFF;

    // Chromatograph gains: the raw trace's and each gas's.
    double CgVisibleGain = 5000;
    double C1Gain = 1, C2Gain = 1, C3Gain = 1, IC4Gain = 1, NC4Gain = 1;
    // The chromatograph output type, kept in the file for the record only.
    int CgOutputType = 1;

    // The nine curve colours: the five gases and the four mud curves.
    long ColorC1 = 33023;
    long ColorC2 = 0xFF0000;
    long ColorC3 = 0xFF00FF;
    long ColorIC4 = 0;
    long ColorNC4 = 65280;
    long ColorMudDenFlow = 0xFF0000;
    long ColorMudDensity = 49344;
    long ColorMudTmp = 0xFF00FF;
    long ColorMudFlow = 192;

    // Seconds to the next statistics report; the file sets it from the
    // stored minutes, the statistics timer counts it down.
    int32_t stats_countdown = 0;

    // The last write of the file failed: the next failure is not reported
    // again until a write has succeeded.
    bool writeFailed = false;
};

} // namespace config
