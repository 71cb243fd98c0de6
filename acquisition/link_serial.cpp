// The serial side of the instrument link: the scan of ports 1 to 20 for the
// instrument's banner, and the close.
#include "acquisition/link.h"
#include "acquisition/log.h"
#include "workstation/events.h"
#include "workstation/workstation.h"

namespace acq {

namespace {

constexpr int kScanPasses = 2;
constexpr int kBannerWaitTicks = 3; // tenths of a second per port

// One port of the scan: open it, ask, and give the banner three tenths of a
// second to come back through the intake tick. Open failures are the normal
// case for most numbers and go no further than the log.
bool ProbePort(Workstation& ws, int port) {
    auto& com = ws.MSComm1;
    station::DoEvents(ws);
    com.SetPortOpen(false);
    com.CommPort = port;
    com.Settings = QStringLiteral("115200,n,8,1");
    com.InputLen = 0;
    ws.packet.Gline_buffer.clear();
    const int err = com.SetPortOpen(true);
    if (err == 0) {
        com.Output(QStringLiteral("?\r\n"));
        ws.loop.Gdelay_ticks = kBannerWaitTicks;
        while (ws.loop.Gdelay_ticks > 0 && !ws.link.Gdetector_found && !ws.closing)
            station::WaitEvents(ws);
    } else {
        qCDebug(lcLink) << "port" << port << "not opened:" << err << com.ErrorText();
    }
    return ws.link.Gdetector_found;
}

} // namespace

void SerialFindKettlewick(Workstation& ws) {
    auto& button = ws.fm_Gas_Chart.cmd_comm1;
    if (ws.link.Guse_tcp || ws.link.Glink_mode == 0) return;

    button.setBackColor(forms::color::Red);
    button.setCaption(QStringLiteral("Kettlewick Disconnected"));
    ws.link.Glink_countdown = 61;
    ws.link.Gcomm_port = 1;
    ws.link.Gdetector_found = false;

    bool found = false;
    for (int pass = 0; pass < kScanPasses && !found && !ws.closing; ++pass) {
        for (int port = 1; port <= platform::PortMap::kPorts && !ws.closing; ++port) {
            ws.link.Gcomm_port = static_cast<int16_t>(port);
            if (ProbePort(ws, port)) {
                found = true;
                break;
            }
        }
    }
    // Nothing answered: the last port tried stays in Gcomm_port, as open or
    // shut as its probe left it (the next probe of any scan closes it), and
    // the countdown brings the next scan.
    if (!found) return;

    // The box's sense is kept as it always was: clear means send.
    if (!ws.fm_setup.ck_supp_echo.checked()) ws.MSComm1.Output(QStringLiteral("ECHO OFF\r\n"));
    ws.link.Glink_countdown = 61;
    button.setBackColor(forms::color::Green);
    button.setCaption(QStringLiteral("Kettlewick Connected"));
    qCInfo(lcLink) << "instrument found on port" << ws.link.Gcomm_port << ws.MSComm1.device();
}

void Close_Serialport(Workstation& ws) {
    ShowDisconnected(ws);
    if (ws.MSComm1.PortOpen()) ws.MSComm1.SetPortOpen(false);
}

} // namespace acq
