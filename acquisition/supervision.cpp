#include "acquisition/supervision.h"

#include "acquisition/link.h"
#include "acquisition/workstation.h"
#include "text/numbers.h"

namespace acq {

using forms::color::Green;
using forms::color::Grey;
using forms::color::Orange;
using forms::color::Red;

void SuperviseWits(Workstation& ws) {
    auto& rt = ws.rt;
    auto& main = ws.fm_Gas_Chart;
    if (rt.Gwits_alive > 0) {
        rt.Gwits_alive -= 1;
        rt.Gpumps_manual = false;
        main.cmd_WITS_info.setCaption("WITS Connected " + QString::number(rt.Gwits_alive));
        main.cmd_WITS_info.setBackColor(Green);
    } else {
        main.cmd_pumps.setCaption("No Pump Data");
        main.cmd_pumps.setBackColor(Grey);
        main.cmd_WITS_info.setCaption("WITS Disconnected");
        main.cmd_WITS_info.setBackColor(Red);
        ws.more_data.wits_info.clearItems();
        ws.more_data.lbl_bit_depth.setCaption("");
        // Slot 0 is left alone on purpose: the last bit depth survives an
        // outage of the stream.
        for (int i = 1; i <= 40; ++i) rt.Gwits_values[i] = 0;
    }
}

void SuperviseLineLag(Workstation& ws) {
    auto& rt = ws.rt;
    auto& label = ws.fm_Gas_Chart.lbl_Line_Lag;
    auto setOk = [&](bool ok) {
        rt.Gline_lag_ok = ok;
        label.setBackColor(ok ? Green : Red);
    };
    if (!ws.fm_setup.ck_disable_line_lag.checked() && rt.Gwits_alive > 0 &&
        rt.Goff_bottom_mode == 0) {
        const bool stopped = rt.Gspm <= 0;
        const bool offBottom = rt.Gwits_values[1] - 3 >= rt.Gwits_values[0];
        if (stopped && offBottom) {
            if (rt.Gline_lag_count > 0) {
                rt.Gline_lag_count -= 1;
                setOk(true);
            }
        } else if (rt.Gline_lag_count < rt.Gline_lag_seconds) {
            rt.Gline_lag_count += 1;
            setOk(false);
        } else if (rt.Gline_lag_count == rt.Gline_lag_seconds) {
            setOk(true);
        } else {
            rt.Gline_lag_count -= 1;
            setOk(true);
        }
        if (rt.Gline_lag_count == 0) setOk(false);
        label.setCaption(" Line Lag " + text::Format(rt.Gline_lag_count, u"0 "));
        return;
    }
    if (rt.Goff_bottom_mode == 1) {
        setOk(false);
        label.setCaption(" Line Lag OFF ");
        return;
    }
    if (rt.Goff_bottom_mode == 0) rt.Gline_lag_count = rt.Gline_lag_seconds;
    setOk(true);
    label.setCaption(" Line Lag " + text::Str(rt.Gline_lag_seconds));
}

void SuperviseLink(Workstation& ws) {
    auto& rt = ws.rt;
    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    if (rt.Gtransfer_active) {
        button.setBackColor(Green);
        button.setCaption("Kettlewick In Transfer");
        return;
    }
    if (rt.Glink_mode != 1) return;
    if (rt.Glink_countdown > 0) rt.Glink_countdown -= 1;
    const QString count = text::Str(rt.Glink_countdown);
    const bool connected = (ws.MSComm1.PortOpen() && rt.Gdetector_found) || rt.Gsock_state == 7;
    if (connected) {
        if (rt.Guse_tcp) {
            long c = Red;
            if (rt.Guptime_percent > 50) c = Orange;
            if (rt.Guptime_percent > 75) c = Green;
            button.setBackColor(c);
            button.setCaption("Connected: " + count + " TCP " + text::Str(rt.Guptime_percent) +
                              "%");
        } else {
            button.setBackColor(Green);
            button.setCaption("Kettlewick Connected: " + count);
        }
    } else {
        button.setBackColor(Red);
        button.setCaption(rt.Guse_tcp ? count + "  " + rt.Gsock_state_text
                                      : "Kettlewick Disconnected " + count);
    }
    if (rt.Glink_countdown == 0) {
        rt.Glink_countdown = 61;
        rt.Gdetector_found = false;
        if (rt.Guse_tcp)
            winsock_connect(ws);
        else
            SerialFindKettlewick(ws);
    }
}

} // namespace acq
