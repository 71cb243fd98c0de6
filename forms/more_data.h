#pragma once
// The real time data viewer: one label per packet field, each in a frame,
// the WITS list and the live terminal.

#include "forms/panel.h"

#include <map>

namespace forms {

struct MoreData : Panel {
    MoreData();

    // Labels that show a packet field (the table below says which).
    Control lbl_date, lbl_time, lbl_DrillDepth, lbl_GasUnits, lbl_O2, lbl_CO2, lbl_Atten, lbl_Temp,
        lbl_DrilRateMF, lbl_DrilRateFH, lbl_Lph, lbl_Vac, lbl_Volts, lbl_low_GUv, lbl_high_GUv,
        lbl_cg_num, lbl_CGv, lbl_H2Sv, lbl_h2s_ppm, lbl_err, lbl_samplemot, lbl_rssi, lbl_rigvolts,
        lbl_rigfreq, lbl_dcamps, lbl_hrmtemp, lbl_chromvac, lbl_packetnum, lbl_c1, lbl_c2, lbl_c3,
        lbl_ic4, lbl_nc4, lbl_ex_prs, lbl_column_temp, lbl_hobbs, lbl_ic5, lbl_nc5;

    Control lbl_err_desc;
    Control lbl_Bottoms_Up;
    Control lbl_current_lag_depth;
    Control lbl_bit_depth;
    Control lbl_Time_Since_Last_Rop_01;
    Control wits_info;
    Control text_window;
    Control lbl_open_errors;
    Control lbl_help;

    // The frame around each label, by the label's name; its caption is the
    // words shown on screen ("Gas Units", "Bit Depth  OFF BOTTOM" ...).
    Control& frameOf(const QString& label);
    const std::map<QString, Control>& frames() const { return frames_; }

    struct FieldLabel {
        Control MoreData::*label;
        int field;
        const char* frame;
    };
    // Label, packet field and frame caption, in screen order.
    static const std::vector<FieldLabel>& fieldLabels();

  private:
    std::map<QString, Control> frames_;
};

} // namespace forms
