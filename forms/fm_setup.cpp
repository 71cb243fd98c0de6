#include "forms/fm_setup.h"

namespace forms {

namespace {
const char* const kCommandCaptions[10] = {
    "Set The Depth",
    "Debounce Timer In Seconds",
    "Power Down Timer In Minutes",
    "Gas Units Attenuation Percent",
    "Depth Tick Chirp Level",
    "Mute Timer In Minutes",
    "High Gas Units Alarm Level",
    "Set Job Number",
    "Send Command String ",
    "Get Data From Kettlewick",
};
const char* const kCustomNumbers[4] = {"0117", "0121", "0120", "0126"};
const char* const kCustomNames[4] = {"Weight On Bit", "Standpipe Pressure", "Rotary RPM",
                                     "Total Mud Volume"};

// The pages of tab_setup. Which frame stands on which page is the panel's
// own layout; the frames keep the captions the operator knows.
const char* const kTabChart = "Chart";
const char* const kTabAlarms = "Alarms";
const char* const kTabFiles = "Files";
const char* const kTabKettlewick = "Kettlewick";
const char* const kTabLag = "Lag";
const char* const kTabWits = "WITS";
const char* const kTabStats = "Statistics";

} // namespace

void FmSetup::beginFrame(const QString& tab, const QString& caption) {
    frames_.push_back({tab, caption, {}});
}

Control& FmSetup::put(Control& c, const QString& name, const QString& caption,
                      const QString& toolTip) {
    add(c, name, caption, toolTip);
    frames_.back().controls.push_back(&c);
    return c;
}

Control& FmSetup::putElement(Control& c, const QString& name, int index, const QString& caption) {
    put(c, name, caption);
    c.setIndex(index);
    return c;
}

QString FmSetup::frameOf(const Control& c) const {
    for (const Frame& f : frames_)
        for (const Control* x : f.controls)
            if (x == &c) return f.caption;
    return {};
}

FmSetup::FmSetup() : Panel("fm_setup", "Program And Equipment Setup") {
    add(tab_setup, "tab_setup");
    for (const char* t :
         {kTabChart, kTabAlarms, kTabFiles, kTabKettlewick, kTabLag, kTabWits, kTabStats})
        tab_setup.addItem(t);

    // ---- Chart
    beginFrame(kTabChart, "Chart Scales");
    put(txt_rop_scale, "txt_rop_scale", "ROP Scale").setText("0 to 10");
    put(txt_lag_gamma_scale, "txt_lag_gamma_scale", "Gamma Scale").setText("0 to 100");
    put(txt_wits_scale, "txt_wits_scale", "WITS Scale").setText("0 to 500");
    put(txt_gas_units, "txt_gas_units", "Gas Units Scale").setText("0 to 300");
    put(txt_oil_ind_scale, "txt_oil_ind_scale", "Oil Indicator Scale").setText("0 to 100");
    put(txt_ROP_in_per_100ft, "txt_ROP_in_per_100ft", "ROP Inches Per 100 Ft").setText("1.0");

    beginFrame(kTabChart, "Chart Items");
    put(ck_rop, "ck_rop", "ROP");
    put(chk_rop_smooth, "chk_rop_smooth", "ROP Smooth");
    put(ck_auto_lag, "ck_auto_lag", "Laged Gas Units");
    put(ck_gamma, "ck_gamma", "Gamma");
    put(ck_edited_geo, "ck_edited_geo", "Edited Geolograph");
    put(ch_show_gu, "ch_show_gu", "Gas Units");
    put(ch_show_chromatograph, "ch_show_chromatograph", "Raw Chromatograph");
    put(ch_show_h2s, "ch_show_h2s", "H2S");
    put(ch_show_peak, "ch_show_peak", "Peak Tags");
    put(ch_co2, "ch_co2", "CO2");
    put(ch_o2, "ch_o2", "O2");
    put(ck_c_values, "ck_c_values", "C Values");
    put(ch_raw_depth, "ch_raw_depth", "Raw Geolograph");
    put(ck_off_bottom, "ck_off_bottom", "Off Bottom");
    put(ck_pumps_on, "ck_pumps_on", "Pumps On / Off");
    for (int i = 0; i < 4; ++i)
        put(ck_Show_Custom_Wits[i], "ck_Show_Custom_Wits_" + QString::number(i + 1),
            kCustomNames[i]);

    beginFrame(kTabChart, "Chart WITS Item");
    put(ck_wits, "ck_wits", "Show WITS Item");
    put(op_wits_item, "op_wits_item");
    op_wits_item.setRange(0, 4);
    for (const char* c : {"Total Strokes Per Min", "Total Strokes", "Inclination", "Azimuth",
                          "Gamma (uses gamma scale)"})
        op_wits_item.addItem(c);
    op_wits_item.setValue(4);

    beginFrame(kTabChart, "Chart Diagnostic Items");
    put(ch_ROP_FtHr, "ch_ROP_FtHr", "Show ROP As Ft/Hour");
    put(ck_rotate_chart, "ck_rotate_chart", "Rotate/Flip Chart ");
    put(ck_show_ins_pac, "ck_show_ins_pac", "Show Inserted Packets");
    put(ck_line_lag, "ck_line_lag", "Line Lag");
    put(ch_show_bd, "ch_show_bd", "Bit Depth");
    put(ck_dc_volts, "ck_dc_volts", "DC Volts");
    put(ck_ac_volts, "ck_ac_volts", "AC Volts");
    put(ck_ext_amps, "ck_ext_amps", "Extractor Amps");
    put(ck_hrm_temp, "ck_hrm_temp", "HRM Temp");
    put(ck_cg_prs, "ck_cg_prs", "CG Pressure");
    put(ck_cg_temp, "ck_cg_temp", "CG Temp");
    put(ck_exh_prs, "ck_exh_prs", "Exhaust Pressure");
    put(ck_temp, "ck_temp", "Case Temp");
    put(ck_vac_flow, "ck_vac_flow", "Vac / Flow");

    beginFrame(kTabChart, "Chart Oil Indicator");
    put(op1_oil_ind, "op1_oil_ind");
    op1_oil_ind.setRange(0, 4);
    for (const char* c : {"None", "Common Oil Indicator", "Baroid Oil Indicator",
                          "Shell Method Oil Indicator", "Pixlar Oil Indicator"})
        op1_oil_ind.addItem(c);
    put(lbl_formula, "lbl_formula");

    beginFrame(kTabChart, "Chromatograph Charting Modifiers");
    put(ck_bold_color_lines, "ck_bold_color_lines", "Bold Color Lines");
    put(txt_cg_gain, "txt_cg_gain", "RAW CG Visible Size").setText("5000");
    {
        const struct {
            Control FmSetup::*box;
            Control FmSetup::*gain;
            Control FmSetup::*color;
            const char* gas;
            const char* lower;
        } gases[] = {
            {&FmSetup::ck_c1, &FmSetup::txt_c1_gain, &FmSetup::lbl_c1_color, "C1", "c1"},
            {&FmSetup::ck_c2, &FmSetup::txt_c2_gain, &FmSetup::lbl_c2_color, "C2", "c2"},
            {&FmSetup::ck_c3, &FmSetup::txt_c3_gain, &FmSetup::lbl_c3_color, "C3", "c3"},
            {&FmSetup::ck_ic4, &FmSetup::txt_ic4_gain, &FmSetup::lbl_ic4_color, "IC4", "ic4"},
            {&FmSetup::ck_nc4, &FmSetup::txt_nc4_gain, &FmSetup::lbl_nc4_color, "NC4", "nc4"},
        };
        for (const auto& g : gases) {
            const QString n = QString::fromLatin1(g.lower);
            put(this->*g.box, "ck_" + n, g.gas);
            put(this->*g.gain, "txt_" + n + "_gain", QString(g.gas) + " Gain").setText("1.00");
            put(this->*g.color, "lbl_" + n + "_color", {}, "Click to change the colour");
        }
    }

    beginFrame(kTabChart, "Background Picture");
    put(cmd_Change_Background_Pic, "cmd_Change_Background_Pic", "Change Background Picture");
    put(cmd_Remove_Pic, "cmd_Remove_Pic", "Remove Picture");
    put(cmd_Change_Background_Color, "cmd_Change_Background_Color", "Change Background Color");

    // ---- Alarms
    beginFrame(kTabAlarms, "Alarm Settings");
    put(ck_alarm_on_kw_al, "ck_alarm_on_kw_al", "Alarm On Kettlewick Alarm");
    put(ck_lost_WITS, "ck_lost_WITS", "Lost Connection To WITS Feed");
    put(ck_lost_kw_con, "ck_lost_kw_con", "Lost Connection To Kettlewick");
    put(ch_next_ft, "ch_next_ft", "Next Depth That Comes In");
    put(ck_long_ft, "ck_long_ft", "Long Drilling Depth In Minutes");
    put(txt_long_ft, "txt_long_ft").setText("25");
    put(ck_al_bit_depth, "ck_al_bit_depth", "Bit Is Greater Than This Bit Depth");
    put(txt_al_bit_depth, "txt_al_bit_depth").setText("5000");
    put(ck_al_depth, "ck_al_depth", "Hole Is Greater Than This Hole Depth");
    put(txt_al_depth, "txt_al_depth").setText("5000");
    put(ck_al_lag_depth, "ck_al_lag_depth", "Alarm On Lag Depth");
    put(txt_al_lag_depth, "txt_al_lag_depth").setText("2500");
    put(ck_high_gu, "ck_high_gu", "High Gas Units");
    put(txt_high_gu, "txt_high_gu").setText("1500");
    put(ck_timedate, "ck_timedate", "Time And Date: ");
    put(txt_al_date, "txt_al_date").setText("12 May 2008");
    put(txt_al_time, "txt_al_time").setText("14:50:00");
    put(lbl_al_timedate, "lbl_al_timedate");
    put(ck_drill_off, "ck_drill_off",
        "Drill Off / Drilling Break - Number Of Depth With Less Than ROP Value");
    put(txt_drill_off_ft, "txt_drill_off_ft").setText("10");
    put(txt_drill_off_rop, "txt_drill_off_rop").setText("2.5");
    put(txt_al_repeat, "txt_al_repeat", "Repeat In Seconds").setText("10");
    put(ck_metric, "ck_metric", "Metric Units");

    beginFrame(kTabAlarms, "Select Alarm Wave File");
    put(txt_wav_file, "txt_wav_file").setText("*.wav");
    put(cmd_browse_wav, "cmd_browse_wav", "Browse");
    put(wav_test, "wav_test", "Test");

    // ---- Files
    beginFrame(kTabFiles, "LAS/XLS File Generation Options");
    put(txt_APN_Number, "txt_APN_Number", "APN Number", "Limited to 19 characters");
    put(ck_GU_as_PPM, "ck_GU_as_PPM", "Gas Units Is In PPM");
    put(ck_ROP_is_FtHr, "ck_ROP_is_FtHr", "ROP is in Ft/Hour");
    put(txt_Percent_GU, "txt_Percent_GU", "Percent Of Gas Units",
        "This changes the output of the Gas Units to the file from 100$ to a different percent")
        .setText("100");
    put(ck_add_timedate, "ck_add_timedate", "Add Time Date to LAS");
    put(ck_time_based_las, "ck_time_based_las", "Create Time Based LAS file");
    put(ck_gen_half_ft_las, "ck_gen_half_ft_las", "Gen Half Foot LAS files");
    put(ck_gen_las_file, "ck_gen_las_file", "Generate LAS File");
    put(ck_gen_las48_file, "ck_gen_las48_file", "Generate \"Last 48 hour\" LAS file");
    put(ck_gen_xls_file, "ck_gen_xls_file", "Generate XLS File");
    put(ck_gen_xls48_file, "ck_gen_xls48_file", "Generate \"Last 48 hour\" XLS file");
    put(ck_gen_las_type1, "ck_gen_las_type1", "Generate LAS Header Ver 1.1");
    put(ck_gen_xls_hdr, "ck_gen_xls_hdr", "Generate XLS Header");
    // Both boxes carry the same words: the tip says which file each is for.
    put(chk_depth_is_lag_depth_las, "chk_depth_is_lag_depth_las", "Depth Column Is Lagged Depth")
        .setToolTip("LAS files");
    put(chk_depth_is_lag_depth_xls, "chk_depth_is_lag_depth_xls", "Depth Column Is Lagged Depth")
        .setToolTip("XLS files");

    beginFrame(kTabFiles, "Output Of C Values In The LAS And XLS Files");
    put(op_cg_in_ppm, "op_cg_in_ppm", "C Values In PPM");
    put(op_cg_in_gu, "op_cg_in_gu", "C Values In Gas Units").setValue(1);
    put(op_cg_percent, "op_cg_percent", "C Values In Percent");
    put(op_cg_percent_sam, "op_cg_percent_sam", "C Values In Percent Of Sample");

    beginFrame(kTabFiles, "C Values Gain");
    put(txt_cval_gain, "txt_cval_gain", "C Values Gain").setText("1.00");

    beginFrame(kTabFiles,
               "Auto Generate LAS/XLS every          Minutes And Place In This Directory");
    put(txt_autogen_las, "txt_autogen_las", {},
        "The minimum amount is 10 minutes.  Set to 0 for OFF")
        .setText("0");
    put(txt_autogenFilename, "txt_autogenFilename", "Use Filename:").setText("Autogen");
    put(ch_autogen_wDate, "ch_autogen_wDate", "Add Time Date To Filename");
    put(txt_autogen_dir, "txt_autogen_dir").setBackColor(color::White);
    put(lbl_AutoLas, "lbl_AutoLas", {}, "Seconds until next save");

    beginFrame(kTabFiles, "Data Seperation Type");
    put(op_delim, "op_delim");
    op_delim.setRange(0, 3);
    for (const char* c : {"Tab delineated Files", "Comma delineated Files",
                          "Space delineated Files", "Delineate File Using..."})
        op_delim.addItem(c);
    put(txt_delim, "txt_delim");

    beginFrame(kTabFiles, "File Generation Depth Range Set");
    put(ck_use_depth_from_db, "ck_use_depth_from_db",
        "Automatically Use Minimum And Maximum Depth From Database")
        .setValue(1);
    put(txt_chart_maxdepth, "txt_chart_maxdepth", "Maximum Depth").setText("15000");
    put(txt_chart_mindepth, "txt_chart_mindepth", "Minimum Depth").setText("1000");

    // ---- Kettlewick
    beginFrame(kTabKettlewick, "Kettlewick Settings");
    for (int i = 0; i < 10; ++i)
        putElement(cmd_KW_command[i], "cmd_KW_command", i, kCommandCaptions[i]);
    for (int i = 0; i < 10; ++i) putElement(txt_data[i], "txt_data", i);
    put(txt_Kettlewick_string, "txt_Kettlewick_string");

    beginFrame(kTabKettlewick, "Sample Gas Sensor Health: Good");
    put(fr_sample, "fr_sample", "Sample Gas Sensor Health: Good");
    put(pg_sample_health, "pg_sample_health");

    beginFrame(kTabKettlewick, "Local Ethernet Or Internet Connection Settings");
    put(ck_supp_echo, "ck_supp_echo", "Suppress Echo");
    put(ck_Mainlog_NoKeepalive, "ck_Mainlog_NoKeepalive",
        "Check here if using MainLog on the USB port");
    put(op_conn_using_serial, "op_conn_using_serial", "Use Serial/USB Connection").setValue(1);
    put(ck_Use_TCP, "ck_Use_TCP", "Use Ethernet");
    put(cmd_KW_lut, "cmd_KW_lut", "Look Up IP/DNS");
    put(txt_KW_lut, "txt_KW_lut").setText("0001");
    put(txt_TCP_ip_port, "txt_TCP_ip_port", "Remote Kettlewick IP And Port")
        .setText("192.168.1.1:23");

    beginFrame(kTabKettlewick, "Two Way Comm. To Kettlewick");
    put(fr_two_way, "fr_two_way", "Two Way Comm. To Kettlewick");
    put(cmd_secure, "cmd_secure", "Two Way Inactive");

    beginFrame(kTabKettlewick, "Surface/Line Lag");
    put(ck_disable_line_lag, "ck_disable_line_lag", "Disable Lilne Lag");
    put(txt_surface_lag, "txt_surface_lag", {},
        "This is the time it takes for the gas to go from the trap to the equipment")
        .setText("120");

    // ---- Lag
    beginFrame(kTabLag, "Select Lag Type");
    put(fr_lag_sel, "fr_lag_sel", "Select Lag Type");
    put(op_lag_calc_Time, "op_lag_calc_Time", "Generate Lag Using Time / Depth").setValue(1);
    put(op_lag_calc_Str, "op_lag_calc_Str", "Generate Lag Using Pump Strokes");

    beginFrame(kTabLag, "Automatic Lagging");
    put(SSTab1, "SSTab1");
    for (int i = 1; i <= 6; ++i) SSTab1.addItem("Zone " + QString::number(i));
    put(lbl_lagstdep, "lbl_lagstdep", "Start Depth");
    put(lbl_lagenddep, "lbl_lagenddep", "End Depth");
    put(lbl_lagstrper100, "lbl_lagstrper100", "Strokes Per 100 Ft");
    put(lbl_lagminper100, "lbl_lagminper100", "Minutes Of Lag Per 100 Ft");
    for (int i = 1; i <= 6; ++i) {
        putElement(txt_Lag_Start_Depth[i], "txt_Lag_Start_Depth", i);
        putElement(txt_Lag_End_Depth[i], "txt_Lag_End_Depth", i);
        putElement(txt_str_per_100ft[i], "txt_str_per_100ft", i).setText("110");
        putElement(txt_lag_min[i], "txt_lag_min", i).setText("1.8");
    }
    txt_Lag_End_Depth[1].setText("30000");
    put(txt_Zone1_text, "txt_Zone1_text");
    put(lbl_Lag_Depth, "lbl_Lag_Depth", "0.0");
    put(lbl_BU_STROKES, "lbl_BU_STROKES", "0");
    put(lbl_BU_MIN, "lbl_BU_MIN", "0.0");

    beginFrame(kTabLag, "Recalculate Lag Times");
    put(ck_Fix_ROP, "ck_Fix_ROP", "Recalculate ROP Also");
    putElement(cmd_recalc_lag[0], "cmd_recalc_lag", 0, "Recalculate Lag For The Total Database");
    putElement(cmd_recalc_lag[1], "cmd_recalc_lag", 1, "Recalculate Lag From X to Y");
    put(txt_recalc_lag_from, "txt_recalc_lag_from").setText("1500");
    put(txt_recalc_lag_to, "txt_recalc_lag_to").setText("12500");

    beginFrame(kTabLag, "Maintenance");
    put(ck_always_use_SPM, "ck_always_use_SPM",
        "Always Calculate Total Strokes From Strokes Per Minute");
    put(cmd_FixTotal_Strokes, "cmd_FixTotal_Strokes", "Fix Total Strokes",
        "If the lag calculations by pump strokes is wrong due to an error of Pump Strokes, "
        "this rebuilds the total strokes from the strokes per minute");
    put(cmd_Clear_Lag, "cmd_Clear_Lag", "Clear All Lag Out Of Database");
    put(cmd_get_all_ROP, "cmd_get_all_ROP", "Re Collect all ROP");
    put(cmd_Add_Missing_Packets, "cmd_Add_Missing_Packets", "Add Missing Packets");

    // ---- WITS
    beginFrame(kTabWits, "Monitor Custom WITS Items");
    for (int i = 0; i < 4; ++i) {
        const QString n = QString::number(i + 1);
        put(txt_custom_wits_number[i], "txt_custom_wits_number_" + n).setText(kCustomNumbers[i]);
        put(txt_custom_wits_name[i], "txt_custom_wits_name_" + n).setText(kCustomNames[i]);
    }

    beginFrame(kTabWits, "Gamma Tool");
    put(ck_Wits_Gamma_Override, "ck_Wits_Gamma_Override", "Override WITS Gamma Lag Depth");
    put(Manual_Gamma_Lag, "Manual_Gamma_Lag", "Manual Gamma Lag").setText("0");

    // ---- Statistics
    beginFrame(kTabStats, "Calculated Statistics");
    put(cmb_Report_Time, "cmb_Report_Time", "Hour to start daily report:").setText("05:00");
    put(chk_autotally_and_save, "chk_autotally_and_save", "Auto Calculate Stats every");
    put(txt_autotally_minutes, "txt_autotally_minutes", "Minutes").setText("60");
    put(lbl_Stats_Countdown, "lbl_Stats_Countdown");
    put(txt_stats_filename, "txt_stats_filename").setText("AUTOTALLY.TXT");
    put(cmd_autotally_browse, "cmd_autotally_browse", "Browse");
    put(cmd_calculate_stats, "cmd_calculate_stats", "Calculate Statistics Now");
    put(txt_stats, "txt_stats");
    put(txt_stats_output, "txt_stats_output");

    form.setVisible(false);
}

} // namespace forms
