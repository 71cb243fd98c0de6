// The Ethernet side of the instrument link: connect, close, the socket's
// state in words, and the typed address.
#include "acquisition/link.h"
#include "acquisition/live_fields.h"
#include "acquisition/log.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/workstation.h"

#include <exception>

namespace acq {

namespace {

constexpr int kTries = 5;
const QString kDefaultAddress = QStringLiteral("192.168.1.1:23");

void RefuseAddress(Workstation& ws, const QString& text) {
    ws.dialogs().MsgBox(text, platform::Buttons::Ok, QStringLiteral("TCP SET ERROR"),
                        platform::Icon::Exclamation);
    ws.fm_setup.ck_Use_TCP.setChecked(false);
    ws.link.Guse_tcp = false;
    ws.fm_setup.txt_TCP_ip_port.setText(kDefaultAddress);
}

void Connect(Workstation& ws) {
    auto& sock = ws.Winsock_ombri;
    if (ws.link.Glink_mode == 0 || !ws.link.Guse_tcp) return;
    ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Red);
    ws.fm_Gas_Chart.cmd_comm1.setCaption(QStringLiteral("Kettlewick Disconnected"));
    // What waits in the buffers stays: the parser keeps no state of its own,
    // so a line begun on the old connection waits for its end like any
    // other, and the instrument's TCPCONNECT greeting clears what it must.
    close_winsock(ws);
    if (ws.link.Gtcp_host.size() < 5) return;

    // Both ports to 0 first, so no earlier binding survives into this try.
    sock.RemoteHost = ws.link.Gtcp_host;
    sock.RemotePort = 0;
    sock.LocalPort = 0;
    sock.RemotePort = static_cast<int>(text::Val(ws.link.Gtcp_port));

    Winsock_state(ws);
    sock.Connect();
    station::DelaySeconds(ws, 1);
    Winsock_state(ws);
    int tries = kTries;
    while (ws.link.Gsock_state != 7) {
        if (tries <= 0 || ws.closing) {
            ws.link.Glink_countdown = 61;
            qCInfo(lcLink) << "no connection to" << ws.link.Gtcp_host << ws.link.Gtcp_port << ":"
                           << ws.link.Gsock_state_text;
            return;
        }
        station::DelaySeconds(ws, 1);
        Winsock_state(ws);
        --tries;
    }
    ws.link.Glink_countdown = 61;
    ws.link.Gdetector_found = true;

    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    button.setBackColor(UptimeColour(ws.link.Guptime_percent));
    button.setCaption("Connected TCP " + text::Str(ws.link.Guptime_percent) + "%");
    qCInfo(lcLink) << "connected to" << ws.link.Gtcp_host << ws.link.Gtcp_port;

    station::DelaySeconds(ws, 2);
    sock.SendData(QStringLiteral("STATUS\r\n"));
}

} // namespace

void Winsock_state(Workstation& ws) {
    static const char* const texts[] = {
        "Port closed",   "Port open",       "Port listening", "Port pending", "Port resolving",
        "Port resolved", "Port connecting", "Port connected", "Port closing", "Port error"};
    ws.link.Gsock_state_text = " Unknown state ";
    const int s = ws.Winsock_ombri.State();
    ws.link.Gsock_state = static_cast<int16_t>(s);
    ws.link.Gsock_state_text = (s >= 0 && s <= 9) ? texts[s] : texts[0];
    if (s != 7) ws.link.Guptime_percent = 0;
}

void close_winsock(Workstation& ws) {
    ShowDisconnected(ws);
    Winsock_state(ws);
    if (ws.link.Gsock_state != 0) ws.Winsock_ombri.Close();
    // Five tries, the first spent on the close itself: four seconds at most.
    int tries = kTries;
    while (ws.link.Gsock_state != 0) {
        if (--tries <= 0 || ws.closing) break;
        Winsock_state(ws);
        station::DelaySeconds(ws, 1);
    }
}

void winsock_connect(Workstation& ws) {
    try {
        Connect(ws);
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, "TCP Connect ERR: " + QString::fromLocal8Bit(e.what()));
        close_winsock(ws);
    }
}

void Check_TCP_ip_port(Workstation& ws) {
    Close_Serialport(ws);
    close_winsock(ws);
    ws.link.Glink_countdown = 2;

    const QString typed = ws.fm_setup.txt_TCP_ip_port.text();
    const auto colon = typed.indexOf(QLatin1Char(':'));
    if (typed.size() < 8 || colon < 0) {
        RefuseAddress(
            ws,
            QStringLiteral("You have entered an invalid IP/port.  TCP connection not established"));
        return;
    }
    ws.link.Gtcp_host = typed.left(colon);
    ws.link.Gtcp_port = typed.mid(colon + 1);
    const double port = text::Val(ws.link.Gtcp_port);
    if (port >= 2200 && port <= 2399) {
        RefuseAddress(ws, QStringLiteral("You have entered an invalid connection port.  TCP "
                                         "connection not established"));
    }
}

} // namespace acq
