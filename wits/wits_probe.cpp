// Finding the rig's WITS stream on a serial port of its own, and keeping an
// eye on it: the search of ports 1 to 20, the search button's colours as the
// stream's health count falls, and the aggressive reconnect.
#include "wits/wits_frame.h"
#include "wits/wits_link.h"
#include "wits/wits_timers.h"
#include "workstation/events.h"
#include "workstation/workstation.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcWits)

namespace wits {

using forms::color::Green;
using forms::color::Red;
using forms::color::Yellow;

namespace {

constexpr int kSearchPasses = 3;
// Tenths of a second a port is given to show a frame: three seconds.
constexpr int16_t kProbeTicks = 30;
// The health count a port must reach during its wait to be taken.
constexpr int kFoundCount = 5;

QString Port(const Workstation& ws) {
    return QString::number(ws.wits.WITS_port);
}

// One port of the search. True when a stream vouched for itself.
bool ProbePort(Workstation& ws) {
    auto& com = ws.MSComm2;
    auto& button = ws.fm_WITS.cmd_Search_For_WITS;
    station::DoEvents(ws);
    com.SetPortOpen(false);
    ws.wits.portWasOpen = false;
    int err = 1; // a box ticked off skips the port
    if (ws.fm_WITS.ck_Use_Local_WITS.checked()) {
        com.CommPort = ws.wits.WITS_port;
        com.Settings = ws.fm_WITS.txt_WITS_baudrate.text() + ",n,8,1";
        com.InputLen = 0;
        err = com.SetPortOpen(true);
        button.setBackColor(Yellow);
        button.setCaption("CHECKING COMM PORT " + Port(ws));
    }
    station::DoEvents(ws);
    if (err == 0 && com.PortOpen()) {
        com.Input();
        ws.wits.WITS_in_buffer.clear();
        ws.wits.WITS_out_frame.clear();
        // A frame with an unset value wakes an EDR that talks only when
        // talked to.
        com.Output(ProbeFrame());
        ws.wits.WITS_probe_countdown = kProbeTicks;
        while (ws.wits.WITS_probe_countdown >= 1 && ws.wits.Gwits_alive <= kFoundCount &&
               !ws.closing)
            station::WaitEvents(ws);
        if (ws.wits.Gwits_alive > kFoundCount && com.PortOpen()) return true;
    } else if (err != 1) {
        qCDebug(lcWits) << "port" << ws.wits.WITS_port << "not opened:" << err << com.ErrorText();
    }
    com.SetPortOpen(false);
    ws.wits.portWasOpen = false;
    station::DoEvents(ws);
    return false;
}

} // namespace

void SerialFindWITS(Workstation& ws) {
    auto& w = ws.wits;
    // The wait yields, and the reconnect timer or a second press could start
    // another search inside it: one at a time.
    if (w.searching) return;
    w.searching = true;
    w.WITS_port = 1;
    w.Gwits_alive = 0;
    bool found = false;
    for (int pass = 0; pass < kSearchPasses && !found && !ws.closing; ++pass) {
        w.WITS_port = 1;
        for (int port = 1; port <= platform::PortMap::kPorts && !ws.closing; ++port) {
            if (ProbePort(ws)) {
                found = true;
                break;
            }
            ++w.WITS_port;
        }
    }
    auto& button = ws.fm_WITS.cmd_Search_For_WITS;
    if (found) {
        button.setBackColor(Green);
        button.setCaption("WITS CONNECTED ON SERIAL PORT: " + Port(ws));
        ws.wits.portWasOpen = true;
        qCInfo(lcWits) << "WITS found on port" << w.WITS_port << ws.MSComm2.device();
    } else {
        w.Gwits_alive = 1;
        button.setBackColor(Red);
        button.setCaption("UNABLE TO FIND WITS PORT");
    }
    w.searching = false;
}

void ck_Use_Local_WITS_Click(Workstation& ws) {
    auto& p = ws.fm_WITS;
    const bool on = p.ck_Use_Local_WITS.checked();
    for (forms::Control* c :
         {&p.cmd_Search_For_WITS, &p.txt_WITS_baudrate, &p.txt_Raw_WITS_In, &p.txt_Raw_WITS_Out})
        c->setEnabled(on);
    if (on) {
        SerialFindWITS(ws);
        return;
    }
    if (ws.MSComm2.PortOpen()) ws.MSComm2.SetPortOpen(false);
    ws.wits.portWasOpen = false;
    ws.wits.WITS_in_buffer.clear();
    ws.wits.WITS_port = 1;
    // One second of life left: the relayed stream, if any, takes over at its
    // next block, and without one the supervision marks WITS down.
    ws.wits.Gwits_alive = 1;
    p.cmd_Search_For_WITS.setBackColor(forms::color::Button);
    p.cmd_Search_For_WITS.setCaption("SEARCH FOR AND OPEN WITS PORT");
}

void cmd_Search_For_WITS_Click(Workstation& ws) {
    SerialFindWITS(ws);
}

void tmr_Serial_WITS_Timer(Workstation& ws) {
    auto& w = ws.wits;
    if (w.WITS_probe_countdown > 0) --w.WITS_probe_countdown;
    if (!ws.fm_WITS.ck_Use_Local_WITS.checked()) return;
    auto& button = ws.fm_WITS.cmd_Search_For_WITS;
    if (w.Gwits_alive >= 21 && button.backColor() != Green) {
        button.setBackColor(Green);
        button.setCaption("WITS CONNECTED ON SERIAL PORT: " + Port(ws));
    } else if (w.Gwits_alive == 8) {
        button.setBackColor(Yellow);
        button.setCaption("WITS MAYBE ON SERIAL PORT: " + Port(ws));
    } else if (w.Gwits_alive == 2 && button.backColor() != Red) {
        button.setBackColor(Red);
        button.setCaption("WITS USED TO BE ON SERIAL PORT: " + Port(ws));
    }
}

void tmr_Keep_WITS_Connected_Timer(Workstation& ws) {
    const auto& p = ws.fm_WITS;
    if (p.ck_Use_Local_WITS.checked() && p.ck_KeepWITSConnected.checked() &&
        ws.wits.Gwits_alive == 0)
        SerialFindWITS(ws);
    ws.more_data.wits_info.clearItems();
}

} // namespace wits
