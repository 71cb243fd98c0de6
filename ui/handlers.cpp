#include "ui/handlers.h"

#include "acquisition/commands.h"
#include "acquisition/control_box.h"
#include "acquisition/job_buttons.h"
#include "acquisition/link.h"
#include "acquisition/sync.h"
#include "acquisition/viewer.h"
#include "alarms/alarm_monitor.h"
#include "chart/chart.h"
#include "chart/interaction.h"
#include "chromatograph/chromatograph.h"
#include "config/setup_handlers.h"
#include "depth/geo_edit.h"
#include "depth/lag.h"
#include "forms/panel.h"
#include "products/autogen.h"
#include "products/omd.h"
#include "stats/statistics.h"
#include "store/lifecycle.h"
#include "store/range_delete.h"
#include "wits/wits_link.h"
#include "workstation/workstation.h"

namespace ui {

namespace {

enum class On { Click, DblClick, Enter, Leave, Commit, Change, Key };

using Plain = void (*)(Workstation&);
using Indexed = void (*)(Workstation&, int);
using Keyed = void (*)(Workstation&, QChar);

struct Route {
    const char* panel;
    const char* control;
    On on;
    Plain plain = nullptr;
    Indexed indexed = nullptr;
    Keyed keyed = nullptr;
    // For a handler shared by several single controls: the number it is
    // given for this one (gas 0 is C1 ...). -1: the array index, or the
    // element an option group has chosen.
    int arg = -1;
};

constexpr Route route(const char* p, const char* c, On on, Plain f) {
    return {p, c, on, f, nullptr, nullptr};
}
constexpr Route route(const char* p, const char* c, On on, Indexed f, int arg = -1) {
    return {p, c, on, nullptr, f, nullptr, arg};
}
constexpr Route route(const char* p, const char* c, Keyed f) {
    return {p, c, On::Key, nullptr, nullptr, f};
}

constexpr const char* kMain = "fm_Gas_Chart";
constexpr const char* kSetup = "fm_setup";
constexpr const char* kViewer = "more_data";
constexpr const char* kLogin = "fm_secure";
constexpr const char* kWits = "fm_WITS";
constexpr const char* kChro = "fm_chro";

// Control name -> handler. A control whose handler is still to come simply
// has no row yet: its widget shows and edits the model, and a press does
// nothing more.
const Route kRoutes[] = {
    // The control box of the main screen.
    route(kMain, "cmd_comm1", On::Click, &acq::cmd_comm1_Click),
    route(kMain, "cmd_refresh", On::Click, &acq::cmd_refresh_Click),
    route(kMain, "txt_refresh_timer", On::Commit, &acq::txt_refresh_timer_Commit),
    route(kMain, "cmd_off_bottom_overide", On::Click, &acq::cmd_off_bottom_overide_Click),
    route(kMain, "cmd_pumps", On::Click, &acq::cmd_pumps_Click),
    route(kMain, "cmd_setup", On::Click, &acq::cmd_setup_Click),
    route(kMain, "cmd_moredata", On::Click, &acq::cmd_moredata_Click),
    route(kMain, "cmd_WITS_info", On::Click, &acq::cmd_WITS_info_Click),
    route(kMain, "cmd_redraw_chart", On::Click, &acq::cmd_redraw_chart_Click),
    // Moving through the chart.
    route(kMain, "cmd_page_up", On::Click, &chart::cmd_page_up_Click),
    route(kMain, "cmd_page_down", On::Click, &chart::cmd_page_down_Click),
    route(kMain, "cmd_zoom_in", On::Click, &chart::cmd_zoom_in_Click),
    route(kMain, "cmd_zoom_out", On::Click, &chart::cmd_zoom_out_Click),
    route(kMain, "cmd_reset_view", On::Click, &chart::cmd_reset_view_Click),

    route(kMain, "cmd_ins_text", On::Click, &chart::cmd_ins_text_Click),
    route(kMain, "cmd_del_txt_box", On::Click, &chart::cmd_del_txt_box_Click),
    route(kMain, "cmd_print", On::Click, &chart::cmd_print_Click),
    // The job file.
    route(kMain, "cmd_new_db", On::Click, &acq::cmd_new_db_Click),
    route(kMain, "cmd_open_db", On::Click, &acq::cmd_open_db_Click),
    route(kMain, "cmd_save_database", On::Click, &acq::cmd_save_database_Click),
    route(kMain, "cmdCompact", On::Click, &store::Compact_db),
    route(kMain, "cmd_sync_kettlewick", On::Click, &acq::cmd_sync_kettlewick_Click),
    route(kMain, "cmd_gen_log_files", On::Click, &products::cmd_gen_log_files_Click),
    route(kMain, "cmd_export_txt", On::Click, &products::cmd_export_txt_Click),
    route(kMain, "cmd_export_to_csv", On::Click, &products::cmd_export_to_csv_Click),
    route(kMain, "cmd_import_txt", On::Click, &products::cmd_import_txt_Click),
    route(kSetup, "txt_autogen_las", On::Leave, &products::txt_autogen_las_LostFocus),
    route(kSetup, "ck_gen_las_file", On::Click, &products::ck_gen_file_Click),
    route(kSetup, "ck_gen_las48_file", On::Click, &products::ck_gen_file_Click),
    route(kSetup, "ck_gen_xls_file", On::Click, &products::ck_gen_file_Click),
    route(kSetup, "ck_gen_xls48_file", On::Click, &products::ck_gen_file_Click),
    // The instrument link on the setup panel.
    route(kSetup, "op_conn_using_serial", On::Click, &acq::op_conn_using_serial_Click),
    route(kSetup, "ck_Use_TCP", On::Click, &acq::ck_Use_TCP_Click),
    route(kSetup, "cmd_KW_lut", On::Click, &acq::cmd_KW_lut_Click),
    // The instrument's console and the login.
    route(kSetup, "cmd_KW_command", On::Click, &acq::cmd_KW_command_Click),
    route(kSetup, "cmd_secure", On::Click, &acq::cmd_secure_Click),
    route(kLogin, "cmd_send_key", On::Click, &acq::cmd_send_key_Click),
    route(kLogin, "txt_pwe", On::Enter, &acq::cmd_send_key_Click),
    // Lag, rate of penetration and stroke total maintenance.
    route(kSetup, "cmd_recalc_lag", On::Click, &depth::cmd_recalc_lag_Click),
    route(kSetup, "cmd_Clear_Lag", On::Click, &depth::cmd_Clear_Lag_Click),
    route(kSetup, "cmd_get_all_ROP", On::Click, &depth::cmd_get_all_ROP_Click),
    route(kSetup, "cmd_FixTotal_Strokes", On::Click, &depth::cmd_FixTotal_Strokes_Click),
    // The setup panel's own settings.
    route(kSetup, "ck_metric", On::Click, &config::ck_metric_Click),
    route(kSetup, "op_delim", On::Click, &config::op_delim_Click),
    route(kSetup, "txt_delim", On::Change, &config::txt_delim_Change),
    route(kSetup, "op_wits_item", On::Click, &config::op_wits_item_Click),
    route(kSetup, "op1_oil_ind", On::Click, &config::op1_oil_ind_Click),
    route(kSetup, "txt_cg_gain", On::Commit, &config::txt_cg_gain_Commit),
    route(kSetup, "txt_c1_gain", On::Commit, &config::txt_gas_gain_Commit, 0),
    route(kSetup, "txt_c2_gain", On::Commit, &config::txt_gas_gain_Commit, 1),
    route(kSetup, "txt_c3_gain", On::Commit, &config::txt_gas_gain_Commit, 2),
    route(kSetup, "txt_ic4_gain", On::Commit, &config::txt_gas_gain_Commit, 3),
    route(kSetup, "txt_nc4_gain", On::Commit, &config::txt_gas_gain_Commit, 4),
    route(kSetup, "txt_cval_gain", On::Commit, &config::txt_cval_gain_Commit),
    route(kSetup, "txt_surface_lag", On::Change, &config::txt_surface_lag_Change),
    route(kSetup, "txt_surface_lag", On::Leave, &config::txt_surface_lag_Change),
    route(kSetup, "txt_gas_units", On::Leave, &config::txt_gas_units_Change),
    route(kSetup, "txt_rop_scale", On::Leave, &config::txt_rop_scale_Commit),
    route(kSetup, "txt_lag_gamma_scale", On::Commit, &config::txt_lag_gamma_scale_Commit),
    route(kSetup, "txt_oil_ind_scale", On::Commit, &config::txt_oil_ind_scale_Commit),
    route(kSetup, "txt_wits_scale", On::Commit, &config::txt_wits_scale_Commit),
    route(kSetup, "txt_ROP_in_per_100ft", On::Commit, &config::txt_ROP_in_per_100ft_Commit),
    route(kSetup, "ck_rotate_chart", On::Click, &chart::ck_rotate_chart_Click),
    route(kSetup, "cmd_Change_Background_Color", On::Click,
          &chart::cmd_Change_Background_Color_Click),
    route(kSetup, "cmd_Change_Background_Pic", On::Click, &chart::cmd_Change_Background_Pic_Click),
    route(kSetup, "cmd_Remove_Pic", On::Click, &chart::cmd_Remove_Pic_Click),
    route(kSetup, "lbl_c1_color", On::Click, &config::lbl_color_Click, 0),
    route(kSetup, "lbl_c2_color", On::Click, &config::lbl_color_Click, 1),
    route(kSetup, "lbl_c3_color", On::Click, &config::lbl_color_Click, 2),
    route(kSetup, "lbl_ic4_color", On::Click, &config::lbl_color_Click, 3),
    route(kSetup, "lbl_nc4_color", On::Click, &config::lbl_color_Click, 4),
    // The alarm settings.
    route(kSetup, "ch_next_ft", On::Click, &alarms::ch_next_ft_Click),
    route(kSetup, "ck_long_ft", On::Click, &alarms::ck_long_ft_Click),
    route(kSetup, "ck_high_gu", On::Click, &alarms::ck_high_gu_Click),
    route(kSetup, "ck_timedate", On::Click, &alarms::ck_timedate_Click),
    route(kSetup, "ck_drill_off", On::Click, &alarms::ck_drill_off_Click),
    route(kSetup, "cmd_browse_wav", On::Click, &alarms::cmd_browse_wav_Click),
    route(kSetup, "wav_test", On::Click, &alarms::wav_test_Click),
    // The local WITS link.
    route(kWits, "ck_Use_Local_WITS", On::Click, &wits::ck_Use_Local_WITS_Click),
    route(kWits, "cmd_Search_For_WITS", On::Click, &wits::cmd_Search_For_WITS_Click),
    route(kWits, "txt_Raw_WITS_Out", On::DblClick, &wits::txt_Raw_WITS_Out_DblClick),
    // The chromatograph panel (the picture's mouse goes straight to its
    // handlers from the view).
    route(kChro, "cmd_set_c1", On::Click, &chromatograph::cmd_set_Click, 0),
    route(kChro, "cmd_set_c2", On::Click, &chromatograph::cmd_set_Click, 1),
    route(kChro, "cmd_set_c3", On::Click, &chromatograph::cmd_set_Click, 2),
    route(kChro, "cmd_set_ic4", On::Click, &chromatograph::cmd_set_Click, 3),
    route(kChro, "cmd_set_nc4", On::Click, &chromatograph::cmd_set_Click, 4),
    route(kChro, "cmd_set_ic5", On::Click, &chromatograph::cmd_set_Click, 5),
    route(kChro, "cmd_set_nc5", On::Click, &chromatograph::cmd_set_Click, 6),
    route(kChro, "cmd_timing_lines", On::Click, &chromatograph::cmd_timing_lines_Click),
    route(kChro, "VS_c", On::Change, &chromatograph::VS_c_Change),
    route(kChro, "vs_cg_vis_size", On::Change, &chromatograph::vs_cg_vis_size_Change),
    route(kChro, "cmd_Commit", On::Click, &chromatograph::cmd_Commit_Click),
    route(kChro, "cmd_get_next_cg", On::Click, &chromatograph::cmd_get_next_cg_Click),
    route(kChro, "cmd_get_previous_cg", On::Click, &chromatograph::cmd_get_previous_cg_Click),
    route(kChro, "cmd_print_chro", On::Click, &chromatograph::cmd_print_chro_Click),
    // The statistics report.
    route(kSetup, "cmd_calculate_stats", On::Click, &stats::cmd_calculate_stats_Click),
    route(kSetup, "cmd_autotally_browse", On::Click, &stats::cmd_autotally_browse_Click),
    route(kSetup, "txt_autotally_minutes", On::Commit, &stats::txt_autotally_minutes_Commit),
    route(kSetup, "txt_autotally_minutes", On::Change, &stats::txt_autotally_minutes_Change),
    // The data viewer: the live terminal and the two links at its foot.
    route(kViewer, "text_window", &acq::text_window_KeyPress),
    route(kViewer, "lbl_open_errors", On::Click, &acq::lbl_open_errors_Click),
    route(kViewer, "lbl_help", On::Click, &acq::lbl_help_Click),
    // The Geolograph Edit Box, the Select Items Box and the place holders.
    route(kMain, "cmd_add_foot_tick", On::Click, &depth::cmd_add_foot_tick_Click),
    route(kMain, "cmd_rem_foot_tick", On::Click, &depth::cmd_rem_foot_tick_Click),
    route(kMain, "op_renum", On::Click, &depth::op_renum_Click),
    route(kMain, "cmd_renum_geo", On::Click, &depth::cmd_renum_geo_Click),
    route(kMain, "cmd_insert_ft", On::Click, &depth::cmd_insert_ft_Click),
    route(kMain, "cmd_del_sel_ticks", On::Click, &depth::cmd_del_sel_ticks_Click),
    route(kMain, "cmd_restore_geo", On::Click, &depth::cmd_restore_geo_Click),
    route(kMain, "cmd_restore_all_geo", On::Click, &depth::cmd_restore_all_geo_Click),
    route(kMain, "cmd_Mark_GU", On::Click, &depth::cmd_Mark_GU_Click),
    route(kMain, "cmd_cancel_geo", On::Click, &depth::cmd_cancel_geo_Click),
    route(kMain, "cmd_cancel_sel", On::Click, &depth::cmd_cancel_sel_Click),
    route(kMain, "cmd_del_from_db", On::Click, &store::cmd_del_from_db_Click),
    route(kMain, "cmd_view_cg", On::Click, &chromatograph::cmd_view_cg_Click),
    route(kSetup, "cmd_Add_Missing_Packets", On::Click, &depth::cmd_Add_Missing_Packets_Click),
};

template <class F> std::function<void()> call(Workstation& ws, F f) {
    return [&ws, f] { f(ws); };
}

void add(std::function<void()>& slot, std::function<void()> more) {
    if (!slot) {
        slot = std::move(more);
        return;
    }
    slot = [first = std::move(slot), second = std::move(more)] {
        first();
        second();
    };
}

} // namespace

Events eventsFor(Workstation& ws, const forms::Panel& panel, const forms::Control& c) {
    Events ev;
    // An element of an array hands on its index; an option group the
    // element chosen.
    const forms::Control* ctl = &c;
    for (const Route& r : kRoutes) {
        if (panel.name() != QLatin1String(r.panel) || c.name() != QLatin1String(r.control))
            continue;
        if (r.on == On::Key) {
            ev.key = [&ws, f = r.keyed](QChar ch) { f(ws, ch); };
            continue;
        }
        std::function<void()> fn =
            r.plain ? call(ws, r.plain) : [&ws, f = r.indexed, ctl, arg = r.arg] {
                f(ws, arg >= 0 ? arg : ctl->index() >= 0 ? ctl->index() : ctl->value());
            };
        switch (r.on) {
        case On::Click:
            add(ev.click, std::move(fn));
            break;
        case On::DblClick:
            add(ev.dblClick, std::move(fn));
            break;
        case On::Enter:
            add(ev.enter, std::move(fn));
            break;
        case On::Leave:
            add(ev.leave, std::move(fn));
            break;
        case On::Commit:
            add(ev.commit, std::move(fn));
            break;
        case On::Change:
            add(ev.change, std::move(fn));
            break;
        case On::Key:
            break;
        }
    }
    return ev;
}

bool hasRoute(const QString& panel, const QString& control) {
    for (const Route& r : kRoutes)
        if (panel == QLatin1String(r.panel) && control == QLatin1String(r.control)) return true;
    return false;
}

} // namespace ui
