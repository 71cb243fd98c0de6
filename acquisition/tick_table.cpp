#include "acquisition/tick_table.h"

#include "acquisition/commands.h"
#include "acquisition/link.h"
#include "acquisition/main_loop.h"
#include "alarms/alarm_monitor.h"
#include "chart/chart.h"
#include "chromatograph/chro_timers.h"
#include "config/config_file.h"
#include "depth/lag.h"
#include "products/autogen.h"
#include "stats/statistics.h"
#include "wits/wits_timers.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

namespace acq {

namespace {

const station::TimerDef kTimers[] = {
    {"tmrDataArrival", "fm_Gas_Chart", 200, true, &tmrDataArrival_Timer},
    // Enabled by the start-up once the job is open.
    {"tmr_refresh", "fm_Gas_Chart", 1000, false, &tmr_refresh_Timer},
    {"tmr_delay", "fm_Gas_Chart", 100, true, &tmr_delay_Timer},
    {"tmr_color_change", "fm_Gas_Chart", 100, true, &tmr_color_change_Timer},
    {"tmr_DB_ERROR", "fm_Gas_Chart", 10000, true, &tmr_DB_ERROR_Timer},
    {"tmr_recalc_lag", "fm_Gas_Chart", 6000, true, &depth::tmr_recalc_lag_Timer},
    {"tmr_save_ini", "fm_Gas_Chart", 60000, true, &config::tmr_save_ini_Timer},
    {"tmr_stay_logged_in", "fm_Gas_Chart", 60000, true, &tmr_stay_logged_in_Timer},
    {"fm_help.Timer1", "fm_help", 2000, true, &station::fm_help_Timer1_Timer},
    {"tmr_lag_calc", "fm_setup", 250, true, &depth::tmr_lag_calc_Timer},
    {"tmr_alarm_mon", "fm_setup", 1000, true, &alarms::tmr_alarm_mon_Timer},
    {"tmr_calc_stats", "fm_setup", 1000, true, &stats::tmr_calc_stats_Timer},
    {"tmr_autogen", "fm_setup", 1000, false, &products::tmr_autogen_Timer},
    {"fm_chro.Timer1", "fm_chro", 100, true, &chromatograph::fm_chro_Timer1_Timer},
    {"fm_chro.Timer2", "fm_chro", 100, true, &chromatograph::fm_chro_Timer2_Timer},
    {"tmr_WITSDataArrival", "fm_WITS", 200, true, &wits::tmr_WITSDataArrival_Timer},
    {"tmr_Serial_WITS", "fm_WITS", 100, true, &wits::tmr_Serial_WITS_Timer},
    {"tmr_Send_WITS", "fm_WITS", 1000, true, &wits::tmr_Send_WITS_Timer},
    {"tmr_ROP_Timer", "fm_WITS", 1000, true, &wits::tmr_ROP_Timer_Timer},
    {"tmr_Keep_WITS_Connected", "fm_WITS", 65000, true, &wits::tmr_Keep_WITS_Connected_Timer},
};

} // namespace

void Wire(Workstation& ws) {
    for (const station::TimerDef& def : kTimers) ws.AddTimer(def);
    ws.services.make_chart = &chart::make_chart;
    ws.services.send_to_instrument = &SendToInstrument;
}

} // namespace acq
