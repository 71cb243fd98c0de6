#include "acquisition/supervision.h"

#include "acquisition/link.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

namespace acq {

using forms::color::Green;
using forms::color::Grey;
using forms::color::Red;

void SuperviseWits(Workstation& ws) {
    auto& main = ws.fm_Gas_Chart;
    if (ws.wits.Gwits_alive > 0) {
        ws.wits.Gwits_alive -= 1;
        ws.wits.Gpumps_manual = false;
        main.cmd_WITS_info.setCaption("WITS Connected " + QString::number(ws.wits.Gwits_alive));
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
        for (int i = 1; i <= 40; ++i) ws.wits.Gwits_values[i] = 0;
    }
}

void SuperviseLineLag(Workstation& ws) {
    auto& label = ws.fm_Gas_Chart.lbl_Line_Lag;
    auto setOk = [&](bool ok) {
        ws.depth.Gline_lag_ok = ok;
        label.setBackColor(ok ? Green : Red);
    };
    if (!ws.fm_setup.ck_disable_line_lag.checked() && ws.wits.Gwits_alive > 0 &&
        ws.depth.Goff_bottom_mode == 0) {
        const bool stopped = ws.wits.Gspm <= 0;
        const bool offBottom = ws.wits.Gwits_values[1] - 3 >= ws.wits.Gwits_values[0];
        if (stopped && offBottom) {
            if (ws.depth.Gline_lag_count > 0) {
                ws.depth.Gline_lag_count -= 1;
                setOk(true);
            }
        } else if (ws.depth.Gline_lag_count < ws.depth.Gline_lag_seconds) {
            ws.depth.Gline_lag_count += 1;
            setOk(false);
        } else if (ws.depth.Gline_lag_count == ws.depth.Gline_lag_seconds) {
            setOk(true);
        } else {
            ws.depth.Gline_lag_count -= 1;
            setOk(true);
        }
        if (ws.depth.Gline_lag_count == 0) setOk(false);
        label.setCaption(" Line Lag " + text::Format(ws.depth.Gline_lag_count, u"0 "));
        return;
    }
    if (ws.depth.Goff_bottom_mode == 1) {
        setOk(false);
        label.setCaption(" Line Lag OFF ");
        return;
    }
    if (ws.depth.Goff_bottom_mode == 0) ws.depth.Gline_lag_count = ws.depth.Gline_lag_seconds;
    setOk(true);
    label.setCaption(" Line Lag " + text::Str(ws.depth.Gline_lag_seconds));
}

void SuperviseLink(Workstation& ws) {
    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    if (ws.packet.Gtransfer_active) {
        button.setBackColor(Green);
        button.setCaption("Kettlewick In Transfer");
        return;
    }
    if (ws.link.Glink_mode != 1) return;
    if (ws.link.Glink_countdown > 0) ws.link.Glink_countdown -= 1;
    ShowLinkCountdown(ws, ws.instrumentConnected());
    if (ws.link.Glink_countdown == 0) {
        ws.link.Glink_countdown = 61;
        ws.link.Gdetector_found = false;
        ConnectInstrument(ws);
    }
}

} // namespace acq
