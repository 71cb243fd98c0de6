#pragma once
// The one door to a redraw of the gas chart.

class Workstation;

namespace chart {

void make_chart(Workstation& ws);
// The chart scale defaults and the geometry set up at start.
void SetChartDefaults(Workstation& ws);

} // namespace chart
