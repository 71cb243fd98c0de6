#pragma once
// The chosen place or stretch on the chart as the commands that act on it
// leave it: gone. The chart's own remove_select_tool also hides its floating
// read-out; the store and the depth edits, which may not reach the chart,
// clear what they read through this.

class Workstation;

namespace station {

// Hides ln_selecter and sets both corners of the selection to -1.
void ClearSelection(Workstation& ws);

} // namespace station
