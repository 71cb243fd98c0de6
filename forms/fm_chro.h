#pragma once
// The chromatograph run viewer.

#include "forms/panel.h"

namespace forms {

struct FmChro : Panel {
    FmChro() : Panel("fm_chro", "Chromatograph") { form.setVisible(false); }
};

} // namespace forms
