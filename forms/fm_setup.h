#pragma once
// The setup panel: its controls are the live settings of the workstation.
// Every other subsystem reads them by name; there is no settings object.
//
// Forms of control used here:
// - a check box holds 0 or 1 in value();
// - a single option button holds 1 when chosen, 0 otherwise;
// - an option group (op_delim, op_wits_item, op1_oil_ind) is one control:
//   value() is the chosen element, items() the captions of the elements;
// - a tab control (tab_setup, SSTab1) is one control: items() are the tab
//   captions, value() the tab in front;
// - a combo box (cmb_Report_Time): items() the list, text() the choice.
// Control arrays keep the element numbers of the program: the lag zone rows
// are elements 1 to 6 (element 0 exists, is never shown and is not listed).

#include "forms/panel.h"

namespace forms {

struct FmSetup : Panel {
    FmSetup();

    // A frame of the panel with the controls standing in it, in screen order.
    // tab names the page of tab_setup the frame stands on.
    struct Frame {
        QString tab;
        QString caption;
        std::vector<Control*> controls;
    };
    const std::vector<Frame>& frames() const { return frames_; }
    // The caption of the frame a control stands in (empty when none).
    QString frameOf(const Control& c) const;

    Control tab_setup;

    // Monitor Custom WITS Items
    std::array<Control, 4> txt_custom_wits_number; // _1 .. _4
    std::array<Control, 4> txt_custom_wits_name;
    std::array<Control, 4> ck_Show_Custom_Wits;

    // Background Picture
    Control cmd_Change_Background_Pic;
    Control cmd_Remove_Pic;
    Control cmd_Change_Background_Color;

    // Calculated Statistics
    Control cmb_Report_Time;
    Control txt_stats_output;
    Control txt_stats;
    Control txt_autotally_minutes;
    Control chk_autotally_and_save;
    Control txt_stats_filename;
    Control cmd_calculate_stats;
    Control cmd_autotally_browse;
    Control lbl_Stats_Countdown;

    // Chart Scales (the gas units scale is read by the start-up)
    Control txt_rop_scale;
    Control txt_lag_gamma_scale;
    Control txt_wits_scale;
    Control txt_gas_units;
    Control txt_oil_ind_scale;
    Control txt_ROP_in_per_100ft;

    // Lag method
    Control op_lag_calc_Time;
    Control op_lag_calc_Str;

    // Select Alarm Wave File
    Control txt_wav_file;
    Control cmd_browse_wav;
    Control wav_test;

    // Alarm Settings
    Control ck_alarm_on_kw_al;
    Control ck_lost_WITS;
    Control ck_lost_kw_con;
    Control ch_next_ft;
    Control ck_long_ft;
    Control txt_long_ft;
    Control ck_al_bit_depth;
    Control txt_al_bit_depth;
    Control ck_al_depth;
    Control txt_al_depth;
    Control ck_al_lag_depth;
    Control txt_al_lag_depth;
    Control ck_high_gu;
    Control txt_high_gu;
    Control ck_timedate;
    Control txt_al_date;
    Control txt_al_time;
    Control lbl_al_timedate;
    Control ck_drill_off;
    Control txt_drill_off_ft;
    Control txt_drill_off_rop;
    Control txt_al_repeat;
    // Units words
    Control ck_metric;

    // Chart Items
    Control ck_rop;
    Control chk_rop_smooth;
    Control ck_auto_lag;
    Control ck_gamma;
    Control ck_edited_geo;
    Control ch_show_gu;
    Control ch_show_chromatograph;
    Control ch_show_h2s;
    Control ch_show_peak;
    Control ch_co2;
    Control ch_o2;
    Control ck_c_values;
    Control ch_raw_depth;
    Control ck_off_bottom;
    Control ck_pumps_on;

    // Chromatograph Charting Modifiers
    Control ck_bold_color_lines;
    Control ck_c1, ck_c2, ck_c3, ck_ic4, ck_nc4;
    Control txt_cg_gain;
    Control txt_c1_gain, txt_c2_gain, txt_c3_gain, txt_ic4_gain, txt_nc4_gain;
    // Chromatograph colours of the five gases
    Control lbl_c1_color, lbl_c2_color, lbl_c3_color, lbl_ic4_color, lbl_nc4_color;

    // Surface/Line Lag
    Control ck_disable_line_lag;
    Control txt_surface_lag;

    // Output Of C Values In The LAS And XLS Files: one of four
    Control op_cg_percent;
    Control op_cg_in_gu;
    Control op_cg_in_ppm;
    Control op_cg_percent_sam;

    // C Values Gain
    Control txt_cval_gain;

    // LAS/XLS File Generation Options
    Control txt_APN_Number;
    Control ck_GU_as_PPM;
    Control ck_ROP_is_FtHr;
    Control txt_Percent_GU;
    Control ck_add_timedate;
    Control ck_time_based_las;
    Control ck_gen_half_ft_las;
    Control ck_gen_las_file;
    Control ck_gen_las48_file;
    Control ck_gen_xls_file;
    Control ck_gen_xls48_file;
    Control ck_gen_las_type1;
    Control ck_gen_xls_hdr;
    Control chk_depth_is_lag_depth_las;
    Control chk_depth_is_lag_depth_xls;

    // Auto Generate LAS/XLS every ... Minutes And Place In This Directory
    Control txt_autogen_las;
    Control txt_autogenFilename;
    Control ch_autogen_wDate;
    Control txt_autogen_dir;
    Control lbl_AutoLas;

    // Gamma Tool
    Control ck_Wits_Gamma_Override;
    Control Manual_Gamma_Lag;

    // Chart Oil Indicator
    Control op1_oil_ind;
    Control lbl_formula;

    // Chart Diagnostic Items
    Control ch_ROP_FtHr;
    Control ck_rotate_chart;
    Control ck_show_ins_pac;
    Control ck_line_lag;
    Control ch_show_bd;
    Control ck_dc_volts;
    Control ck_ac_volts;
    Control ck_ext_amps;
    Control ck_hrm_temp;
    Control ck_cg_prs;
    Control ck_cg_temp;
    Control ck_exh_prs;
    Control ck_temp;
    Control ck_vac_flow;

    // Recalculate Lag Times
    Control ck_Fix_ROP;
    std::array<Control, 2> cmd_recalc_lag; // 0 whole file, 1 a depth range
    Control txt_recalc_lag_from;
    Control txt_recalc_lag_to;

    // Kettlewick Settings
    std::array<Control, 10> cmd_KW_command;
    std::array<Control, 10> txt_data;
    Control txt_Kettlewick_string;

    // Sample gas sensor health
    Control fr_sample;
    Control pg_sample_health;

    // Local Ethernet Or Internet Connection Settings
    Control ck_supp_echo;
    Control ck_Mainlog_NoKeepalive;
    Control op_conn_using_serial;
    Control ck_Use_TCP;
    Control cmd_KW_lut;
    Control txt_KW_lut;
    Control txt_TCP_ip_port;

    // Two Way Comm. To Kettlewick
    Control fr_two_way;
    Control cmd_secure;

    // Automatic Lagging: the six zone rows, elements 1 to 6
    Control SSTab1;
    std::array<Control, 7> txt_Lag_Start_Depth;
    std::array<Control, 7> txt_Lag_End_Depth;
    std::array<Control, 7> txt_str_per_100ft;
    std::array<Control, 7> txt_lag_min;
    Control fr_lag_sel;
    Control lbl_lagstdep, lbl_lagenddep, lbl_lagstrper100, lbl_lagminper100;
    Control txt_Zone1_text;
    Control lbl_Lag_Depth;
    Control lbl_BU_STROKES;
    Control lbl_BU_MIN;

    // Chart WITS Item
    Control ck_wits;
    Control op_wits_item;

    // Data Seperation Type
    Control op_delim;
    Control txt_delim;

    // File Generation Depth Range Set
    Control ck_use_depth_from_db;
    Control txt_chart_maxdepth;
    Control txt_chart_mindepth;

    // Maintenance
    Control ck_always_use_SPM;
    Control cmd_FixTotal_Strokes;
    Control cmd_Clear_Lag;
    Control cmd_get_all_ROP;
    Control cmd_Add_Missing_Packets;

  private:
    // Controls registered from here on stand in this frame.
    void beginFrame(const QString& tab, const QString& caption);
    Control& put(Control& c, const QString& name, const QString& caption = {},
                 const QString& toolTip = {});
    Control& putElement(Control& c, const QString& name, int index, const QString& caption = {});

    std::vector<Frame> frames_;
};

} // namespace forms
