#include "forms/fm_gas_chart.h"

namespace forms {

FmGasChart::FmGasChart() : Panel("fm_Gas_Chart", " Ombri Instruments Gas Chart") {
    // The control box starts over the top of the depth graph, clear of the
    // position bar and of the gas plot.
    add(Frame6, "Frame6", "Gas Chart Control Box").setPlace(250, 100);
    add(sel_type, "sel_type", "Select Items Box").setVisible(false);
    add(Geo_edit, "Geo_edit", "Geolograph Edit Box").setVisible(false);
    add(cmd_comm1, "cmd_comm1", "Kettlewick Disconnected").setBackColor(color::Red);
    add(cmd_refresh, "cmd_refresh", "Refresh 180").setBackColor(color::Green);
    add(txt_refresh_timer, "txt_refresh_timer").setText("180");
    add(cmd_off_bottom_overide, "cmd_off_bottom_overide", "Off Bottom Automatic")
        .setBackColor(color::Grey);
    add(cmd_pumps, "cmd_pumps", "No Pump Data").setBackColor(color::Grey);
    add(cmd_setup, "cmd_setup", "Setup");
    add(cmd_moredata, "cmd_moredata", "Data Viewer");
    add(cmd_WITS_info, "cmd_WITS_info", "WITS Disconnected").setBackColor(color::Red);
    add(cmd_redraw_chart, "cmd_redraw_chart", "Redraw Chart");
    add(cmd_page_up, "cmd_page_up", "Page Up");
    add(cmd_page_down, "cmd_page_down", "Page Down");
    add(cmd_zoom_in, "cmd_zoom_in", "Zoom In GU");
    add(cmd_zoom_out, "cmd_zoom_out", "Zoom Out GU");
    add(cmd_reset_view, "cmd_reset_view", "Reset View");
    add(txt_TotalStr, "txt_TotalStr");
    add(lbl_Line_Lag, "lbl_Line_Lag", " Line Lag 120").setBackColor(color::Green);
    add(txt_message, "txt_message");
    add(txt_KW_err, "txt_KW_err").setBackColor(color::White);
    add(txt_db_path, "txt_db_path");
    add(cmd_new_db, "cmd_new_db", "New Data Base");
    add(cmd_open_db, "cmd_open_db", "Open Data Base");
    add(cmd_save_database, "cmd_save_database", "Save Data Base As");
    add(cmdCompact, "cmdCompact", "Compact / Repair Data Base");
    add(cmd_sync_kettlewick, "cmd_sync_kettlewick", "Sync With Kettlewick");
    add(cmd_gen_log_files, "cmd_gen_log_files", "Generate LAS/XLS Files");
    add(cmd_export_txt, "cmd_export_txt", "Export OMD");
    add(cmd_export_to_csv, "cmd_export_to_csv", "Export CSV");
    add(cmd_import_txt, "cmd_import_txt", "Import OMD");
    add(lbl_lock_Level, "lbl_lock_Level", "DB Ready");
    add(CK_Import_OMD, "CK_Import_OMD", "Import Bad OMD",
        "If the OMD data is bad this forces it to be imported anyway");
    add(ln_selecter, "ln_selecter").setVisible(false);

    add(lbl_time_depth, "lbl_time_depth");
    add(cmd_ins_text, "cmd_ins_text", "Insert Text");
    add(cmd_del_txt_box, "cmd_del_txt_box", "Delete Text Box");
    add(cmd_print, "cmd_print", "Print Chart");

    // The commands of the Geolograph Edit Box and the Select Items Box.
    addArray(cmd_add_foot_tick, "cmd_add_foot_tick");
    cmd_add_foot_tick[0].setCaption("Add Depth Tick Mark");
    cmd_add_foot_tick[1].setCaption("Insert Renumbering Stop");
    addArray(cmd_rem_foot_tick, "cmd_rem_foot_tick");
    cmd_rem_foot_tick[0].setCaption("Delete Depth Tick Mark");
    cmd_rem_foot_tick[1].setCaption("Remove Renumbering Stop");
    add(cmd_renum_geo, "cmd_renum_geo", "Renumber Geolograph Start");
    // Option 0 and 1 of the group: "Renumber Going Up Hole", "Renumber
    // Going Down Hole".
    add(op_renum, "op_renum", "Renumber Going Up Hole");
    add(ck_renum_st_at, "ck_renum_st_at", "Start At");
    add(txt_renum_start, "txt_renum_start");
    add(cmd_insert_ft, "cmd_insert_ft", "Add Ft. Between Changes");
    add(cmd_del_sel_ticks, "cmd_del_sel_ticks", "Delete Selected Geolograph Ticks");
    add(cmd_restore_geo, "cmd_restore_geo", "Restore Selected Geolograph Data");
    add(cmd_restore_all_geo, "cmd_restore_all_geo", "Restore All Geolograph Data");
    addArray(cmd_Mark_GU, "cmd_Mark_GU");
    cmd_Mark_GU[0].setCaption("Mark As Good Gas Units");
    cmd_Mark_GU[1].setCaption("Mark As Bad Gas Units");
    add(cmd_cancel_geo, "cmd_cancel_geo", "Cancel");
    add(cmd_cancel_sel, "cmd_cancel_sel", "Cancel");
    add(cmd_del_from_db, "cmd_del_from_db", "Delete Selected Data");
    add(cmd_view_cg, "cmd_view_cg", "View Chromatograph");
}

} // namespace forms
