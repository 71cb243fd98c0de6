#pragma once
// The chromatograph run on show and what its panel keeps: the samples and
// report values of one run (CgRun, overwritten by each load), the peak being
// timed, the base line, the redraw flag and the picture box pb_chro.

#include "workstation/canvas.h"

#include <QDateTime>
#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace chromatograph {

// Highest sample index of a run.
constexpr int kCgSlots = 50001;
// The gases of a run, in the instrument's order.
constexpr int kGases = 7;
// The size of the picture box pb_chro in twips: the trace at left, the
// report at right.
constexpr double kPictureWidth = 9000;
constexpr double kPictureHeight = 7200;

struct CgRun {
    std::vector<double> CgSamples = std::vector<double>(kCgSlots);
    std::vector<QDateTime> CgTimes = std::vector<QDateTime>(kCgSlots);
    // The index of the last sample.
    int32_t CgCount = 0;
    // Record positions of the ends of the run.
    int32_t CgFirstRecord = 0;
    int32_t CgLastRecord = 0;
    double CgBase = 0;
    double CgTestNum = 0;
    double CgGasUnits = 0;
    double CgLagDepth = 0;
    double CgDepth = 0;
    QString CgTimeText;
    QString CgDateText;
    double CgBitDepth = 0;
    QString CgSerial;
    double CgMinFt = 0;
    double CgFtHr = 0;
    double CgAtten = 0;
    double CgLph = 0;
    double CgO2 = 0;
    double CgCo2 = 0;
    double CgColumnTemp = 0;
    double CgPressure = 0;
    // CgC1 .. CgNC5 in gas units, and the percent of each.
    std::array<double, kGases> CgC{};
    std::array<double, kGases> CgPct{};
    bool CgEndOfData = false;
    bool CgIncomplete = false;
    // Up while the sliders are set from code, so they do not answer.
    bool CgSliderGuard = false;
};

struct ChroState {
    CgRun run;

    // 0 none, else 1 to 7 in the order C1 .. NC5.
    int16_t PeakToSet = 0;
    // Ticks of Timer2 left on the chosen peak.
    int32_t PeakSetCountdown = 0;
    // Which half of a flash the chosen button is in.
    bool FlashOn = false;
    // The seconds into the run under the pointer, at its last move.
    int32_t PointerSeconds = 0;
    // The base line of the trace in twips.
    double CgZeroY = 0;
    bool CgGainGuard = false;
    bool CgRedrawPending = false;
    bool Gcg_drawing = false;
    bool TimingLinesOn = true;

    // Filled by each draw: the peak times of the run and how many peaks the
    // instrument counted.
    std::array<int32_t, 12> PeakSeconds{};
    std::array<QString, 12> PeakTimeText{};
    int GoodPeaks = 0;

    // The vertical line under the pointer.
    station::LineControl ln_V;

    // The picture box. The panel's view puts an image canvas here, a test
    // a recording one; none means the run is not drawn.
    std::shared_ptr<station::Canvas> pb_chro;
};

} // namespace chromatograph
