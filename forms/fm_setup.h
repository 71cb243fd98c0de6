#pragma once
// The setup panel: its controls are the live settings of the workstation.

#include "forms/panel.h"

namespace forms {

struct FmSetup : Panel {
    FmSetup();

    // Monitor Custom WITS Items
    std::array<Control, 4> txt_custom_wits_number; // _1 .. _4
    std::array<Control, 4> txt_custom_wits_name;
    std::array<Control, 4> ck_Show_Custom_Wits;

    // Surface/Line Lag
    Control ck_disable_line_lag;
    Control txt_surface_lag;

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

    // Lag method
    Control op_lag_calc_Time;
    Control op_lag_calc_Str;

    // Chart scales (the gas units scale is read by the start-up)
    Control txt_gas_units;

    // Units words
    Control ck_metric;

    // Chromatograph colours of the five gases
    Control lbl_c1_color, lbl_c2_color, lbl_c3_color, lbl_ic4_color, lbl_nc4_color;
};

} // namespace forms
