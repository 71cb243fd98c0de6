// The chart before it is drawn: a redraw request is accepted and nothing is
// painted yet.
#include "chart/chart.h"

namespace chart {

void make_chart(Workstation&) {}
void SetChartDefaults(Workstation&) {}

} // namespace chart
