#pragma once
// The chosen place or stretch on the chart as the commands that act on it
// leave it: gone. The chart's own moves, the store and the depth edits all
// clear it through here, so none of them leaves a line or read-out behind.

class Workstation;

namespace station {

// Hides ln_selecter and its floating read-out and sets both corners of the
// selection to -1.
void ClearSelection(Workstation& ws);

} // namespace station
