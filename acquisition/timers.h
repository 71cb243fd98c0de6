#pragma once
// The named timers of the workstation: name, owning panel, period, whether
// it runs from the start, and its tick. Each tick is a plain function of the
// subsystem that owns the work; tests call them directly.

#include <QString>
#include <vector>

class Workstation;

namespace acq {

struct TimerDef {
    const char* name; // unique key: the timer's name, or "panel.name" off the main screen
    const char* owner;
    int periodMs;
    bool runsFromStart;
    void (*tick)(Workstation&);
};
const std::vector<TimerDef>& TimerTable();

// Main screen
void tmrDataArrival_Timer(Workstation& ws);
void tmr_refresh_Timer(Workstation& ws);
void tmr_delay_Timer(Workstation& ws);
void tmr_color_change_Timer(Workstation& ws);
void tmr_DB_ERROR_Timer(Workstation& ws);
void tmr_stay_logged_in_Timer(Workstation& ws);

} // namespace acq

// Ticks whose work lives with other subsystems.
namespace depth {
void tmr_recalc_lag_Timer(Workstation& ws);
void tmr_lag_calc_Timer(Workstation& ws);
} // namespace depth
namespace config {
void tmr_save_ini_Timer(Workstation& ws);
}
namespace acq {
void fm_help_Timer1_Timer(Workstation& ws);
}
namespace alarms {
void tmr_alarm_mon_Timer(Workstation& ws);
}
namespace stats {
void tmr_calc_stats_Timer(Workstation& ws);
}
namespace products {
void tmr_autogen_Timer(Workstation& ws);
}
namespace chromatograph {
void fm_chro_Timer1_Timer(Workstation& ws);
void fm_chro_Timer2_Timer(Workstation& ws);
} // namespace chromatograph
namespace wits {
void tmr_WITSDataArrival_Timer(Workstation& ws);
void tmr_Serial_WITS_Timer(Workstation& ws);
void tmr_Send_WITS_Timer(Workstation& ws);
void tmr_ROP_Timer_Timer(Workstation& ws);
void tmr_Keep_WITS_Connected_Timer(Workstation& ws);
} // namespace wits
