#pragma once
// The operator's corrections to the stored depth, and the gas marks, on the
// records chosen on the chart: the Geolograph Edit Box and the Select Items
// Box. Every command writes in one transaction: it is done whole or not at
// all. The ones that may walk the whole job let the event loop run inside
// that transaction, with every other writer held back (geo::Run).

class Workstation;

namespace depth {

// Index 0: a new foot tick (DEPTH negated); 1: a renumbering stop
// (CGTESTNUM negated). At the row of the level ln_selecter.
void cmd_add_foot_tick_Click(Workstation& ws, int index);
// Takes the nearest tick (0) or stop (1) off again.
void cmd_rem_foot_tick_Click(Workstation& ws, int index);
void op_renum_Click(Workstation& ws, int index);
// Renumbers DEPTH from the chosen record on, one foot a tick or change.
void cmd_renum_geo_Click(Workstation& ws);
// Add Ft. Between Changes over the whole table.
void cmd_insert_ft_Click(Workstation& ws);
void Calculate_Tic_Marks(Workstation& ws);
void cmd_del_sel_ticks_Click(Workstation& ws);
void cmd_restore_geo_Click(Workstation& ws);
void cmd_restore_all_geo_Click(Workstation& ws);
// Index 0 good gas (every "*" taken out of ERR_TXT), 1 bad ("*" put in front).
void cmd_Mark_GU_Click(Workstation& ws, int index);
void cmd_cancel_geo_Click(Workstation& ws);
void cmd_cancel_sel_Click(Workstation& ws);
// Place holders for the missed packets, then the depth arrays and the chart.
void cmd_Add_Missing_Packets_Click(Workstation& ws);

} // namespace depth
