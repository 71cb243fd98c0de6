#pragma once
// Lag depth, rate of penetration by foot, and the stroke total: what is
// worked out from the stored records.

#include <cstdint>

class Workstation;

namespace depth {

// The lag engine. limit: records to lag, 0 for no limit; fromDepth and
// toDepth both above 0 restrict the pass to that stretch of hole.
void RecalculateLag(Workstation& ws, long limit, double fromDepth, double toDepth);
// LAG_GU and DATA1 of every record back to 0.
void ClearLag(Workstation& ws);

// Every 6 s: the newest records are lagged.
void tmr_recalc_lag_Timer(Workstation& ws);
// Every 250 ms: the zone factors and the bottoms-up figures.
void tmr_lag_calc_Timer(Workstation& ws);
// The zone factors the passes read (strokes and minutes per foot of each
// zone), from the zone rows of the setup panel. The timer keeps them
// current; whoever fills the rows calls it too, so that no pass ever reads
// factors older than the rows.
void RefreshZoneFactors(Workstation& ws);
// The two recalculation buttons: 0 the whole file, 1 the depth range.
void cmd_recalc_lag_Click(Workstation& ws, int index);
void cmd_Clear_Lag_Click(Workstation& ws);

// Fills the depth arrays from the records between two positions (both 0:
// the whole table, the arrays cleared first). lagged: by lag depth and lag
// rate instead of drilled depth and MIN_FT. firstRec comes back as lastRec,
// so a caller can go on from there.
void Collect_ROP_Data(Workstation& ws, int32_t& firstRec, int32_t& lastRec, bool lagged,
                      int32_t& result);
// The whole table, by drilled depth.
void Collect_ROP_Data(Workstation& ws);
void cmd_get_all_ROP_Click(Workstation& ws);

// MIN_FT rewritten from the time each foot took, between two positions
// (both 0: the whole table).
void recalculate_rop(Workstation& ws, int32_t& firstRec, int32_t& lastRec, int32_t& result);

// TOTAL_STROKES rebuilt over the whole table from TOTAL_SPM.
void Fix_total_strokes(Workstation& ws);
void cmd_FixTotal_Strokes_Click(Workstation& ws);
// Gtotal_strokes from the job, so that counting goes on where it stopped.
void ReadLastTotalStrokes(Workstation& ws);

// The lag zone table of the job file.
void ReadLagTable(Workstation& ws);
void WriteLagTable(Workstation& ws);
void CreateLagTable(Workstation& ws);

} // namespace depth
