#pragma once
// The seven peaks of a run by number (1 C1 .. 7 NC5): their names and the
// colours the chart gives them. The pentanes share the butanes' colours.

#include "workstation/workstation.h"

#include <QString>

namespace chromatograph {

inline QString PeakName(int peak) {
    static const char* const names[8] = {"", "C1", "C2", "C3", "IC4", "NC4", "IC5", "NC5"};
    return peak >= 1 && peak <= 7 ? QString::fromLatin1(names[peak]) : QString();
}

inline long PeakColor(const Workstation& ws, int peak) {
    const auto& s = ws.settings;
    switch (peak) {
    case 1:
        return s.ColorC1;
    case 2:
        return s.ColorC2;
    case 3:
        return s.ColorC3;
    case 4:
    case 6:
        return s.ColorIC4;
    case 5:
    case 7:
        return s.ColorNC4;
    default:
        return 0;
    }
}

} // namespace chromatograph
