#include "acquisition/control_box.h"

#include "chart/chart.h"
#include "chart/floating_boxes.h"
#include "config/config_file.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

namespace acq {

using forms::color::Green;
using forms::color::Red;

void cmd_refresh_Click(Workstation& ws) {
    auto& b = ws.fm_Gas_Chart.cmd_refresh;
    ws.chart.Grefresh_paused = !ws.chart.Grefresh_paused;
    if (ws.chart.Grefresh_paused) {
        b.setBackColor(Red);
        b.setCaption("Refresh Off");
    } else {
        b.setBackColor(Green);
        b.setCaption("Refresh " + QString::number(ws.chart.Grefresh_count));
    }
}

void txt_refresh_timer_Commit(Workstation& ws) {
    auto& box = ws.fm_Gas_Chart.txt_refresh_timer;
    double v = text::Val(box.text());
    if (v < 10) {
        v = 10;
        box.setText("10");
    }
    ws.chart.Grefresh_seconds = text::CLng(v);
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
}

void cmd_off_bottom_overide_Click(Workstation& ws) {
    static const char* const captions[] = {"Off Bottom Automatic", "Forced OFF Bottom",
                                           "Forced ON Bottom"};
    ws.depth.Goff_bottom_mode += 1;
    if (ws.depth.Goff_bottom_mode > 2) ws.depth.Goff_bottom_mode = 0;
    ws.fm_Gas_Chart.cmd_off_bottom_overide.setCaption(
        captions[static_cast<int>(ws.depth.Goff_bottom_mode)]);
}

void cmd_pumps_Click(Workstation& ws) {
    if (ws.wits.Gwits_alive >= 1) return;
    auto& b = ws.fm_Gas_Chart.cmd_pumps;
    if (b.backColor() == Red) {
        b.setBackColor(Green);
        b.setCaption("PUMPS ON");
        ws.wits.Gpumps_manual = true;
    } else {
        b.setBackColor(Red);
        b.setCaption("PUMPS OFF");
        ws.wits.Gpumps_manual = false;
    }
}

void cmd_setup_Click(Workstation& ws) {
    ws.fm_setup.form.setVisible(true);
}
void cmd_moredata_Click(Workstation& ws) {
    ws.more_data.form.setVisible(true);
}
void cmd_WITS_info_Click(Workstation& ws) {
    ws.fm_WITS.form.setVisible(true);
}

void cmd_redraw_chart_Click(Workstation& ws) {
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    chart::make_chart(ws);
}

void fm_Gas_Chart_MouseDown(Workstation& ws, bool leftButton) {
    ws.fm_Gas_Chart.Frame6.setVisible(!leftButton);
    config::WriteConfigFile(ws);
}

void Frame6_MouseUp(Workstation& ws, int Button, double X, double Y) {
    // The box's new place is kept at once, not only at the next minute's
    // write, so the program finds it there after a crash too.
    if (chart::Box_MouseUp(ws, ws.fm_Gas_Chart.Frame6, Button, X, Y)) config::WriteConfigFile(ws);
}

} // namespace acq
