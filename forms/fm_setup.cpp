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
} // namespace

FmSetup::FmSetup() : Panel("fm_setup", "Program And Equipment Setup") {
    for (int i = 0; i < 4; ++i) {
        const QString n = QString::number(i + 1);
        add(txt_custom_wits_number[i], "txt_custom_wits_number_" + n).setText(kCustomNumbers[i]);
        add(txt_custom_wits_name[i], "txt_custom_wits_name_" + n).setText(kCustomNames[i]);
        add(ck_Show_Custom_Wits[i], "ck_Show_Custom_Wits_" + n, kCustomNames[i]);
    }
    add(ck_disable_line_lag, "ck_disable_line_lag", "Disable Lilne Lag");
    add(txt_surface_lag, "txt_surface_lag", {},
        "This is the time it takes for the gas to go from the trap to the equipment")
        .setText("120");

    addArray(cmd_KW_command, "cmd_KW_command");
    addArray(txt_data, "txt_data");
    for (int i = 0; i < 10; ++i) cmd_KW_command[i].setCaption(kCommandCaptions[i]);
    add(txt_Kettlewick_string, "txt_Kettlewick_string");

    add(fr_sample, "fr_sample", "Sample Gas Sensor Health: Good");
    add(pg_sample_health, "pg_sample_health");

    add(ck_supp_echo, "ck_supp_echo", "Suppress Echo");
    add(ck_Mainlog_NoKeepalive, "ck_Mainlog_NoKeepalive",
        "Check here if using MainLog on the USB port");
    add(op_conn_using_serial, "op_conn_using_serial", "Use Serial/USB Connection").setValue(1);
    add(ck_Use_TCP, "ck_Use_TCP", "Use Ethernet");
    add(cmd_KW_lut, "cmd_KW_lut", "Look Up IP/DNS");
    add(txt_KW_lut, "txt_KW_lut").setText("0001");
    add(txt_TCP_ip_port, "txt_TCP_ip_port", "Remote Kettlewick IP And Port")
        .setText("192.168.1.1:23");

    add(fr_two_way, "fr_two_way", "Two Way Comm. To Kettlewick");
    add(cmd_secure, "cmd_secure", "Two Way Inactive");

    add(op_lag_calc_Time, "op_lag_calc_Time", "Generate Lag Using Time / Depth").setValue(1);
    add(op_lag_calc_Str, "op_lag_calc_Str", "Generate Lag Using Pump Strokes");

    add(txt_gas_units, "txt_gas_units").setText("0 to 300");
    add(ck_metric, "ck_metric", "Metric Units");

    add(lbl_c1_color, "lbl_c1_color");
    add(lbl_c2_color, "lbl_c2_color");
    add(lbl_c3_color, "lbl_c3_color");
    add(lbl_ic4_color, "lbl_ic4_color");
    add(lbl_nc4_color, "lbl_nc4_color");
    form.setVisible(false);
}

} // namespace forms
