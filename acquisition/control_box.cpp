#include "acquisition/control_box.h"

#include "acquisition/workstation.h"
#include "chart/chart.h"
#include "config/config_file.h"
#include "text/numbers.h"

namespace acq {

using forms::color::Green;
using forms::color::Red;

void cmd_refresh_Click(Workstation& ws) {
    auto& rt = ws.rt;
    auto& b = ws.fm_Gas_Chart.cmd_refresh;
    rt.Grefresh_paused = !rt.Grefresh_paused;
    if (rt.Grefresh_paused) {
        b.setBackColor(Red);
        b.setCaption("Refresh Off");
    } else {
        b.setBackColor(Green);
        b.setCaption("Refresh " + QString::number(rt.Grefresh_count));
    }
}

void txt_refresh_timer_Commit(Workstation& ws) {
    auto& box = ws.fm_Gas_Chart.txt_refresh_timer;
    double v = text::Val(box.text());
    if (v < 10) {
        v = 10;
        box.setText("10");
    }
    ws.rt.Grefresh_seconds = text::CLng(v);
    ws.rt.Grefresh_count = ws.rt.Grefresh_seconds;
}

void cmd_off_bottom_overide_Click(Workstation& ws) {
    static const char* const captions[] = {"Off Bottom Automatic", "Forced OFF Bottom",
                                           "Forced ON Bottom"};
    auto& rt = ws.rt;
    rt.Goff_bottom_mode += 1;
    if (rt.Goff_bottom_mode > 2) rt.Goff_bottom_mode = 0;
    ws.fm_Gas_Chart.cmd_off_bottom_overide.setCaption(
        captions[static_cast<int>(rt.Goff_bottom_mode)]);
}

void cmd_pumps_Click(Workstation& ws) {
    if (ws.rt.Gwits_alive >= 1) return;
    auto& b = ws.fm_Gas_Chart.cmd_pumps;
    if (b.backColor() == Red) {
        b.setBackColor(Green);
        b.setCaption("PUMPS ON");
        ws.rt.Gpumps_manual = true;
    } else {
        b.setBackColor(Red);
        b.setCaption("PUMPS OFF");
        ws.rt.Gpumps_manual = false;
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
    ws.rt.Grefresh_count = ws.rt.Grefresh_seconds;
    chart::make_chart(ws);
}

void fm_Gas_Chart_MouseDown(Workstation& ws, bool leftButton) {
    ws.fm_Gas_Chart.Frame6.setVisible(!leftButton);
    config::WriteConfigFile(ws);
}

} // namespace acq
