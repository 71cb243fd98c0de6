#pragma once
// The main screen: the chart canvas and the control box Frame6.

#include "forms/panel.h"

namespace forms {

struct FmGasChart : Panel {
    FmGasChart();

    Control Frame6;
    // The two floating boxes of a chosen place on the chart.
    Control sel_type;
    Control Geo_edit;
    Control cmd_comm1;
    Control cmd_refresh;
    Control txt_refresh_timer;
    Control cmd_off_bottom_overide;
    Control cmd_pumps;
    Control cmd_setup;
    Control cmd_moredata;
    Control cmd_WITS_info;
    Control cmd_redraw_chart;
    // Moving through the chart.
    Control cmd_page_up;
    Control cmd_page_down;
    Control cmd_zoom_in;
    Control cmd_zoom_out;
    Control cmd_reset_view;
    Control txt_TotalStr;
    Control lbl_Line_Lag;
    Control txt_message;
    Control txt_KW_err;
    Control txt_db_path;
    Control cmd_new_db;
    Control cmd_open_db;
    Control cmd_save_database;
    Control cmdCompact;
    Control cmd_sync_kettlewick;
    // The files for the office.
    Control cmd_gen_log_files;
    Control cmd_export_txt;
    Control cmd_export_to_csv;
    Control cmd_import_txt;
    Control lbl_lock_Level;
    Control CK_Import_OMD;
    Control ln_selecter;
    // Working on the chart: the read-out of the row under the pointer, text
    // boxes on the chart, and printing it.
    Control lbl_time_depth;
    Control cmd_ins_text;
    Control cmd_del_txt_box;
    Control cmd_print;
    // The commands of the Geolograph Edit Box and the Select Items Box.
    std::array<Control, 2> cmd_add_foot_tick;
    std::array<Control, 2> cmd_rem_foot_tick;
    Control cmd_renum_geo;
    Control op_renum;
    Control ck_renum_st_at;
    Control txt_renum_start;
    Control cmd_insert_ft;
    Control cmd_del_sel_ticks;
    Control cmd_restore_geo;
    Control cmd_restore_all_geo;
    std::array<Control, 2> cmd_Mark_GU;
    Control cmd_cancel_geo;
    Control cmd_cancel_sel;
    Control cmd_del_from_db;
    Control cmd_view_cg;
    // Whether the window is minimized: the title takes its short form then.
    bool minimized = false;
};

} // namespace forms
