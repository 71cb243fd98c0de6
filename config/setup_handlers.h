#pragma once
// The setup panel's own handlers. The change handlers do nothing while
// Gstarting_up is set, so the configuration reader can fill the controls
// without side effects; the Apply functions are the unguarded work that the
// reader shares with them.

#include <QString>

class Workstation;

namespace config {

// The panel is loaded (hidden) at start.
void fm_setup_Load(Workstation& ws);
// Closing the panel only hides it; its timers go on. Returns true: the close
// is cancelled.
bool fm_setup_QueryUnload(Workstation& ws);

// A click on one of the colour labels lbl_c1_color .. lbl_nc4_color (gas 0
// is C1, 4 is NC4): the colour dialog picks the gas's curve colour.
void lbl_color_Click(Workstation& ws, int gas);

// Units words of the data viewer and the drill off alarm.
void ck_metric_Click(Workstation& ws);
void ApplyMetricWords(Workstation& ws, bool viewerFrames);

// Data separator of the file writers.
void op_delim_Click(Workstation& ws, int index);
void txt_delim_Change(Workstation& ws);
void ApplyDelimiter(Workstation& ws, int index);

// The assignable WITS column of the chart.
void op_wits_item_Click(Workstation& ws, int index);
void ApplyWitsItem(Workstation& ws, int index);

// Oil indicator choice and the formula it shows.
void op1_oil_ind_Click(Workstation& ws, int index);
void ApplyOilIndicator(Workstation& ws, int index);

// Enter in the box or leaving it.
void txt_cg_gain_Commit(Workstation& ws);
void txt_gas_gain_Commit(Workstation& ws, int gas); // txt_c1_gain .. txt_nc4_gain
void txt_cval_gain_Commit(Workstation& ws);
// Every key and leaving the box.
void txt_surface_lag_Change(Workstation& ws);

// Scale entry: on leaving the box (and on Enter for the gamma, WITS and oil
// indicator scales). txt_gas_units_Change also runs once at the end of
// start-up, which lets the first chart be drawn.
void txt_gas_units_Change(Workstation& ws);
void txt_rop_scale_Commit(Workstation& ws);
void txt_lag_gamma_scale_Commit(Workstation& ws);
void txt_oil_ind_scale_Commit(Workstation& ws);
void txt_wits_scale_Commit(Workstation& ws);

// Depth scale of the ROP graph.
void txt_ROP_in_per_100ft_Commit(Workstation& ws);
// The box's rule without the redraw: outside 0.5 to 10 the value is 1.
void ApplyRopInchesPer100Ft(Workstation& ws);

// The curve colours onto the colour labels and the gas boxes' text.
void ShowCurveColors(Workstation& ws);

} // namespace config
