#include "workstation/select_tool.h"

#include "workstation/workstation.h"

namespace station {

void ClearSelection(Workstation& ws) {
    auto& c = ws.chart;
    ws.fm_Gas_Chart.ln_selecter.setVisible(false);
    c.lbl_float.Visible = false;
    c.SelectStartX = -1;
    c.SelectStartY = -1;
    c.SelectEndX = -1;
    c.SelectEndY = -1;
}

} // namespace station
