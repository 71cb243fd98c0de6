// The operator's switches of the instrument link: on and off, serial or
// Ethernet.
#include "acquisition/link.h"
#include "acquisition/log.h"

#include "text/numbers.h"
#include "workstation/workstation.h"

namespace acq {

// Both links close with the same button state: red while the link is wanted,
// grey when the operator forced it off.
void ShowDisconnected(Workstation& ws) {
    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    if (ws.link.Glink_mode != 0) {
        button.setBackColor(forms::color::Red);
        button.setCaption(QStringLiteral("Kettlewick Disconnected"));
    } else {
        button.setBackColor(forms::color::Grey);
        button.setCaption(QStringLiteral("Kettlewick Forced Off"));
    }
}

void cmd_comm1_Click(Workstation& ws) {
    ws.link.Glink_mode += 1;
    if (ws.link.Glink_mode > 1) ws.link.Glink_mode = 0;
    if (ws.link.Glink_mode == 0) {
        ws.fm_Gas_Chart.cmd_comm1.setCaption(QStringLiteral("Kettlewick Forced Off"));
        ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Grey);
        ws.link.Gdetector_found = false;
        Close_Serialport(ws);
        close_winsock(ws);
        return;
    }
    ws.link.Glink_countdown = 61;
    ConnectInstrument(ws);
}

void ConnectInstrument(Workstation& ws) {
    if (ws.link.Guse_tcp)
        winsock_connect(ws);
    else
        SerialFindKettlewick(ws);
}

void ShowLinkCountdown(Workstation& ws, bool connected) {
    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    const QString count = text::Str(ws.link.Glink_countdown);
    if (!connected) {
        button.setBackColor(forms::color::Red);
        button.setCaption(ws.link.Guse_tcp ? count + "  " + ws.link.Gsock_state_text
                                           : "Kettlewick Disconnected " + count);
    } else if (ws.link.Guse_tcp) {
        button.setBackColor(UptimeColour(ws.link.Guptime_percent));
        button.setCaption("Connected: " + count + " TCP " + text::Str(ws.link.Guptime_percent) +
                          "%");
    } else {
        button.setBackColor(forms::color::Green);
        button.setCaption("Kettlewick Connected: " + count);
    }
}

long UptimeColour(double uptime) {
    long c = forms::color::Red;
    if (uptime > 50) c = forms::color::Orange;
    if (uptime > 75) c = forms::color::Green;
    return c;
}

void op_conn_using_serial_Click(Workstation& ws) {
    ws.link.Guse_tcp = false;
    close_winsock(ws);
    ws.link.Glink_mode = 1;
    ws.link.Glink_countdown = 61;
    SerialFindKettlewick(ws);
}

void ck_Use_TCP_Click(Workstation& ws) {
    if (ws.fm_setup.ck_Use_TCP.checked()) {
        ws.link.Guse_tcp = true;
        Check_TCP_ip_port(ws);
    } else {
        ws.link.Guse_tcp = false;
    }
}

bool SendToInstrument(Workstation& ws, const QString& line) {
    platform::InstrumentLink& link = ws.instrument();
    if (link.state() != platform::LinkState::Open) return false;
    link.write(line);
    return true;
}

} // namespace acq
