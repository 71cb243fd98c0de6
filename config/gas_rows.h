#pragma once
// The five gases of the chromatograph as the setup panel shows them: the
// curve's check box, its gain box, its colour label, and the kept curve
// colour and gain. One table serves the colour picks, the gain boxes and the
// configuration file.

#include "forms/fm_setup.h"
#include "workstation/settings.h"

#include <array>

namespace config {

struct GasRow {
    forms::Control forms::FmSetup::*box;   // ck_c1 ...
    forms::Control forms::FmSetup::*gain;  // txt_c1_gain ...
    forms::Control forms::FmSetup::*color; // lbl_c1_color ...
    long Settings::*curveColor;            // ColorC1 ...
    double Settings::*gainValue;           // C1Gain ...
};

// C1, C2, C3, IC4, NC4 in that order.
inline const std::array<GasRow, 5>& GasRows() {
    using F = forms::FmSetup;
    static const std::array<GasRow, 5> rows = {{
        {&F::ck_c1, &F::txt_c1_gain, &F::lbl_c1_color, &Settings::ColorC1, &Settings::C1Gain},
        {&F::ck_c2, &F::txt_c2_gain, &F::lbl_c2_color, &Settings::ColorC2, &Settings::C2Gain},
        {&F::ck_c3, &F::txt_c3_gain, &F::lbl_c3_color, &Settings::ColorC3, &Settings::C3Gain},
        {&F::ck_ic4, &F::txt_ic4_gain, &F::lbl_ic4_color, &Settings::ColorIC4, &Settings::IC4Gain},
        {&F::ck_nc4, &F::txt_nc4_gain, &F::lbl_nc4_color, &Settings::ColorNC4, &Settings::NC4Gain},
    }};
    return rows;
}

} // namespace config
