// The operator's switches of the instrument link: on and off, serial or
// Ethernet.
#include "acquisition/link.h"

#include "workstation/workstation.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcLink, "gaschart.link")

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
    if (!ws.link.Guse_tcp)
        SerialFindKettlewick(ws);
    else
        winsock_connect(ws);
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

// Sends on every open channel: both are served when both happen to be open.
bool SendToInstrument(Workstation& ws, const QString& line) {
    bool sent = false;
    if (ws.MSComm1.PortOpen()) {
        ws.MSComm1.Output(line);
        sent = true;
    }
    if (ws.link.Gsock_state == 7) {
        ws.Winsock_ombri.SendData(line);
        sent = true;
    }
    return sent;
}

} // namespace acq
