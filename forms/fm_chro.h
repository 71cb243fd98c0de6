#pragma once
// The chromatograph run viewer: the picture of one run, the buttons that
// choose a peak to time, the seven sliders of the gas split and the size of
// the trace.

#include "forms/panel.h"

#include <array>

namespace forms {

struct FmChro : Panel {
    FmChro() : Panel("fm_chro", "Chromatograph") {
        form.setVisible(false);
        add(pb_chro, "pb_chro");
        static const char* const names[7] = {"cmd_set_c1",  "cmd_set_c2",  "cmd_set_c3",
                                             "cmd_set_ic4", "cmd_set_nc4", "cmd_set_ic5",
                                             "cmd_set_nc5"};
        static const char* const captions[7] = {"Set C1 Peak",  "Set C2 Peak",  "Set C3 Peak",
                                                "Set IC4 Peak", "Set NC4 Peak", "Set IC5 Peak",
                                                "Set NC5 Peak"};
        for (int i = 0; i < 7; ++i) add(cmd_set[i], names[i], captions[i]);
        add(lbl_dbl_clk, "lbl_dbl_clk", "Double Click On Peak To Set Timing");
        lbl_dbl_clk.setVisible(false);
        add(lbl_cg_time, "lbl_cg_time");
        lbl_cg_time.setVisible(false);
        add(ln_V, "ln_V");
        ln_V.setVisible(false);
        add(cmd_timing_lines, "cmd_timing_lines", "Timing Lines Are On");
        addArray(VS_c, "VS_c");
        for (Control& c : VS_c) c.setRange(0, 100);
        add(lbl_adjust, "lbl_adjust", "Adjust C1 - NC5");
        add(cmd_Commit, "cmd_Commit", "COMMIT CHANGE");
        add(vs_cg_vis_size, "vs_cg_vis_size");
        vs_cg_vis_size.setRange(1, 200);
        add(lbl_size, "lbl_size", "SIZE");
        add(cmd_get_next_cg, "cmd_get_next_cg", "Next");
        add(cmd_get_previous_cg, "cmd_get_previous_cg", "Previous");
        add(cmd_print_chro, "cmd_print_chro", "Print");
    }

    Control pb_chro;
    // cmd_set_c1 .. cmd_set_nc5.
    std::array<Control, 7> cmd_set;
    Control lbl_dbl_clk;
    Control lbl_cg_time;
    Control ln_V;
    Control cmd_timing_lines;
    // The percent of each gas, C1 .. NC5.
    std::array<Control, 7> VS_c;
    Control lbl_adjust;
    Control cmd_Commit;
    Control vs_cg_vis_size;
    Control lbl_size;
    Control cmd_get_next_cg;
    Control cmd_get_previous_cg;
    Control cmd_print_chro;
};

} // namespace forms
