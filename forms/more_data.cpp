#include "forms/more_data.h"

namespace forms {

const std::vector<MoreData::FieldLabel>& MoreData::fieldLabels() {
    static const std::vector<FieldLabel> table = {
        {&MoreData::lbl_date, 1, "Date"},
        {&MoreData::lbl_time, 2, "Time"},
        {&MoreData::lbl_DrillDepth, 3, "Drill Depth In Feet"},
        {&MoreData::lbl_GasUnits, 4, "Gas Units"},
        {&MoreData::lbl_O2, 5, "% O2"},
        {&MoreData::lbl_CO2, 6, "% CO2"},
        {&MoreData::lbl_Atten, 7, "Atten"},
        {&MoreData::lbl_Temp, 8, "Temp"},
        {&MoreData::lbl_DrilRateMF, 9, "ROP Mn/Ft"},
        {&MoreData::lbl_DrilRateFH, 10, "ROP Ft/Hr"},
        {&MoreData::lbl_Lph, 11, "LPH"},
        {&MoreData::lbl_Vac, 12, "Vac"},
        {&MoreData::lbl_Volts, 13, "Volts DC"},
        {&MoreData::lbl_low_GUv, 14, "Pri Volts"},
        {&MoreData::lbl_high_GUv, 15, "Sec Volts"},
        {&MoreData::lbl_cg_num, 16, "CG ID"},
        {&MoreData::lbl_CGv, 17, "CG Volts"},
        {&MoreData::lbl_H2Sv, 18, "H2S Volts"},
        {&MoreData::lbl_h2s_ppm, 19, "H2S PPM"},
        {&MoreData::lbl_err, 20, "Error Number"},
        {&MoreData::lbl_samplemot, 21, "Motor %"},
        {&MoreData::lbl_rssi, 22, "RSSI"},
        {&MoreData::lbl_rigvolts, 23, "AC Volts"},
        {&MoreData::lbl_rigfreq, 24, "AC Freq"},
        {&MoreData::lbl_dcamps, 25, "Amps"},
        {&MoreData::lbl_hrmtemp, 26, "HRM Tmp"},
        {&MoreData::lbl_chromvac, 27, "CG Pressure"},
        {&MoreData::lbl_packetnum, 28, "Packet Num"},
        {&MoreData::lbl_c1, 29, "Methane"},
        {&MoreData::lbl_c2, 30, "Ethane"},
        {&MoreData::lbl_c3, 31, "Propane"},
        {&MoreData::lbl_ic4, 32, "I Butane"},
        {&MoreData::lbl_nc4, 33, "N Butane"},
        {&MoreData::lbl_ex_prs, 34, "Exhaust Prs"},
        {&MoreData::lbl_column_temp, 35, "Column Temp"},
        {&MoreData::lbl_hobbs, 37, "HOBBS"},
        {&MoreData::lbl_ic5, 38, "I Pentane"},
        {&MoreData::lbl_nc5, 39, "N Pentane"},
    };
    return table;
}

MoreData::MoreData() : Panel("more_data", "Real Time Data Viewer") {
    static const struct {
        Control MoreData::*label;
        const char* name;
    } names[] = {
        {&MoreData::lbl_date, "lbl_date"},
        {&MoreData::lbl_time, "lbl_time"},
        {&MoreData::lbl_DrillDepth, "lbl_DrillDepth"},
        {&MoreData::lbl_GasUnits, "lbl_GasUnits"},
        {&MoreData::lbl_O2, "lbl_O2"},
        {&MoreData::lbl_CO2, "lbl_CO2"},
        {&MoreData::lbl_Atten, "lbl_Atten"},
        {&MoreData::lbl_Temp, "lbl_Temp"},
        {&MoreData::lbl_DrilRateMF, "lbl_DrilRateMF"},
        {&MoreData::lbl_DrilRateFH, "lbl_DrilRateFH"},
        {&MoreData::lbl_Lph, "lbl_Lph"},
        {&MoreData::lbl_Vac, "lbl_Vac"},
        {&MoreData::lbl_Volts, "lbl_Volts"},
        {&MoreData::lbl_low_GUv, "lbl_low_GUv"},
        {&MoreData::lbl_high_GUv, "lbl_high_GUv"},
        {&MoreData::lbl_cg_num, "lbl_cg_num"},
        {&MoreData::lbl_CGv, "lbl_CGv"},
        {&MoreData::lbl_H2Sv, "lbl_H2Sv"},
        {&MoreData::lbl_h2s_ppm, "lbl_h2s_ppm"},
        {&MoreData::lbl_err, "lbl_err"},
        {&MoreData::lbl_samplemot, "lbl_samplemot"},
        {&MoreData::lbl_rssi, "lbl_rssi"},
        {&MoreData::lbl_rigvolts, "lbl_rigvolts"},
        {&MoreData::lbl_rigfreq, "lbl_rigfreq"},
        {&MoreData::lbl_dcamps, "lbl_dcamps"},
        {&MoreData::lbl_hrmtemp, "lbl_hrmtemp"},
        {&MoreData::lbl_chromvac, "lbl_chromvac"},
        {&MoreData::lbl_packetnum, "lbl_packetnum"},
        {&MoreData::lbl_c1, "lbl_c1"},
        {&MoreData::lbl_c2, "lbl_c2"},
        {&MoreData::lbl_c3, "lbl_c3"},
        {&MoreData::lbl_ic4, "lbl_ic4"},
        {&MoreData::lbl_nc4, "lbl_nc4"},
        {&MoreData::lbl_ex_prs, "lbl_ex_prs"},
        {&MoreData::lbl_column_temp, "lbl_column_temp"},
        {&MoreData::lbl_hobbs, "lbl_hobbs"},
        {&MoreData::lbl_ic5, "lbl_ic5"},
        {&MoreData::lbl_nc5, "lbl_nc5"},
    };
    for (const auto& n : names) add(this->*(n.label), n.name);
    for (const auto& f : fieldLabels()) {
        const QString label = (this->*(f.label)).name();
        Control& fr = frames_[label];
        add(fr, "fra_" + label.mid(4), f.frame);
    }
    add(lbl_err_desc, "lbl_err_desc", "No Errors");
    add(frames_["lbl_err_desc"], "fra_err_desc", "Error Description");
    add(lbl_Bottoms_Up, "lbl_Bottoms_Up");
    add(frames_["lbl_Bottoms_Up"], "fra_Bottoms_Up", "Bottoms Up");
    add(lbl_current_lag_depth, "lbl_current_lag_depth");
    add(frames_["lbl_current_lag_depth"], "fra_current_lag_depth", "Current Calculated Lag Depth");
    add(lbl_bit_depth, "lbl_bit_depth");
    add(frames_["lbl_bit_depth"], "fra_bit_depth", "Bit Depth");
    add(lbl_Time_Since_Last_Rop_01, "lbl_Time_Since_Last_Rop_01");
    add(wits_info, "wits_info");
    add(text_window, "text_window", {}, "Allows direct viewing of incoming data packets");
    add(lbl_open_errors, "lbl_open_errors", "Open Error Log");
    add(lbl_help, "lbl_help", "Help");
    lbl_GasUnits.setToolTip("Yellow = High  Red = Very High");
    lbl_bit_depth.setBackColor(color::Black);
    form.setVisible(false);
}

Control& MoreData::frameOf(const QString& label) {
    return frames_.at(label);
}

} // namespace forms
