#pragma once
// The gas chart: the one door to a redraw, the buttons that move the view,
// and the three parts of a draw (the hour block reader, the strip chart by
// time and the rate of penetration graph by depth).

class Workstation;

namespace chart {

// The one door to a redraw: the strip chart, then the ROP graph left of it,
// never two at once.
void make_chart(Workstation& ws);
// The chart's geometry and flags at start.
void SetChartDefaults(Workstation& ws);
// The geometry of the canvas for the state of ck_rop.
void SetGeometry(Workstation& ws);

// The picture with the controls above it (labels, lines, the selection
// line and its read-out) put on screen again.
void Present(Workstation& ws);

void cmd_reset_view_Click(Workstation& ws);
void cmd_zoom_in_Click(Workstation& ws);
void cmd_zoom_out_Click(Workstation& ws);
void cmd_page_up_Click(Workstation& ws);
void cmd_page_down_Click(Workstation& ws);
void ck_rotate_chart_Click(Workstation& ws);
void cmd_Change_Background_Color_Click(Workstation& ws);
void cmd_Change_Background_Pic_Click(Workstation& ws);
void cmd_Remove_Pic_Click(Workstation& ws);
// The background colour and picture onto the canvas.
void ApplyBackground(Workstation& ws);

// One hour block, read backwards from HourPointer.
void Read_hour_block_from_db(Workstation& ws);
// The strip chart from ChartTopRecord.
void Chart_by_time(Workstation& ws);
// The depth graph, from the deepest foot `depth` upward.
void generate_rop_graph(Workstation& ws, double depth);

} // namespace chart
