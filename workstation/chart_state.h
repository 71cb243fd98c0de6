#pragma once
// What the gas chart keeps between draws: the refresh countdown, the
// position marks in the record table and the re-entrancy guard.

#include <QString>
#include <array>
#include <cstdint>

namespace chart {

struct ChartState {
    int32_t Grefresh_seconds = 180;
    int32_t Grefresh_count = 180;
    bool Grefresh_paused = false;
    // A draw (or a chromatogram load) is under way.
    bool Gchart_busy = false;
    // The renderer itself is drawing: set by make_chart around its two draws.
    bool Gchart_drawing = false;
    // The assignable WITS column of the chart (0 TOTAL_SPM .. 4 GAMMA).
    int Gwits_column = 4;

    // The position marks, as record positions (AbsolutePosition): the newest
    // record but one, the top of the page, and where the next hour block
    // read starts.
    int32_t LastRecord = 0;
    int32_t ChartTopRecord = 0;
    int32_t HourPointer = 0;
};

// The columns the chart can take from WITS, by index.
inline const std::array<QString, 5>& WitsColumnNames() {
    static const std::array<QString, 5> names = {"TOTAL_SPM", "TOTAL_STROKES", "INCLINATION",
                                                 "AZIMUTH", "GAMMA"};
    return names;
}

} // namespace chart
