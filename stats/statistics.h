#pragma once
// The statistics report's timer.

class Workstation;

namespace stats {

void tmr_calc_stats_Timer(Workstation& ws);

} // namespace stats
