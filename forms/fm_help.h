#pragma once
// The information box through which every long job reports.

#include "forms/panel.h"

namespace forms {

struct FmHelp : Panel {
    FmHelp() : Panel("fm_help", "INFORMATION BOX") {
        add(txt_help, "txt_help");
        add(lbl_help, "lbl_help");
        add(pgbar, "pgbar");
        form.setVisible(false);
    }
    Control txt_help;
    Control lbl_help;
    Control pgbar;
};

} // namespace forms
