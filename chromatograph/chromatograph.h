#pragma once
// One chromatograph run at a time: found from a stretch chosen on the chart
// or stepped to from the run on show, drawn with its report, its peaks timed
// by the operator and its gas split corrected and written back.

class Workstation;

namespace chromatograph {

// Finding and loading a run into ws.chro.run; each ends with a draw.
// "View Chromatograph" of the chart's select items box.
void cmd_view_cg_Click(Workstation& ws);
void get_next_cg(Workstation& ws);
void get_previous_cg(Workstation& ws);
void cmd_get_next_cg_Click(Workstation& ws);
void cmd_get_previous_cg_Click(Workstation& ws);

// The picture of the run on pb_chro, and the same picture on paper.
void draw_chromatograph(Workstation& ws);
void print_chromatograph(Workstation& ws);
void cmd_print_chro_Click(Workstation& ws);

// The panel: its start state, the peak buttons (0 = C1 .. 6 = NC5), the
// pointer over the picture (x, y in twips; leftButton while dragging) and
// the double click that teaches the instrument a peak time.
void fm_chro_Load(Workstation& ws);
void cmd_set_Click(Workstation& ws, int peak);
void cmd_timing_lines_Click(Workstation& ws);
void pb_chro_MouseMove(Workstation& ws, double x, double y, bool leftButton);
void pb_chro_DblClick(Workstation& ws);

// The gas split and the size of the trace.
void VS_c_Change(Workstation& ws, int index);
void vs_cg_vis_size_Change(Workstation& ws);
void cmd_Commit_Click(Workstation& ws);

} // namespace chromatograph
