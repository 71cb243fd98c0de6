// The operator's switches of the instrument link: on and off, serial or
// Ethernet.
#include "acquisition/link.h"

#include "acquisition/workstation.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcLink, "gaschart.link")

namespace acq {

// Both links close with the same button state: red while the link is wanted,
// grey when the operator forced it off.
void ShowDisconnected(Workstation& ws) {
    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    if (ws.rt.Glink_mode != 0) {
        button.setBackColor(forms::color::Red);
        button.setCaption(QStringLiteral("Kettlewick Disconnected"));
    } else {
        button.setBackColor(forms::color::Grey);
        button.setCaption(QStringLiteral("Kettlewick Forced Off"));
    }
}

void cmd_comm1_Click(Workstation& ws) {
    auto& rt = ws.rt;
    rt.Glink_mode += 1;
    if (rt.Glink_mode > 1) rt.Glink_mode = 0;
    if (rt.Glink_mode == 0) {
        ws.fm_Gas_Chart.cmd_comm1.setCaption(QStringLiteral("Kettlewick Forced Off"));
        ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Grey);
        rt.Gdetector_found = false;
        Close_Serialport(ws);
        close_winsock(ws);
        return;
    }
    rt.Glink_countdown = 61;
    if (!rt.Guse_tcp)
        SerialFindKettlewick(ws);
    else
        winsock_connect(ws);
}

void op_conn_using_serial_Click(Workstation& ws) {
    ws.rt.Guse_tcp = false;
    close_winsock(ws);
    ws.rt.Glink_mode = 1;
    ws.rt.Glink_countdown = 61;
    SerialFindKettlewick(ws);
}

void ck_Use_TCP_Click(Workstation& ws) {
    if (ws.fm_setup.ck_Use_TCP.checked()) {
        ws.rt.Guse_tcp = true;
        Check_TCP_ip_port(ws);
    } else {
        ws.rt.Guse_tcp = false;
    }
}

} // namespace acq
