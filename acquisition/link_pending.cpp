// The link procedures before the link itself is built: the supervision can
// call them, and they return at once. Winsock_state reads the socket as it is.
#include "acquisition/link.h"
#include "acquisition/timers.h"

#include "acquisition/workstation.h"

namespace acq {

void SerialFindKettlewick(Workstation&) {}
void Close_Serialport(Workstation&) {}
void winsock_connect(Workstation&) {}
void close_winsock(Workstation&) {}
void Check_TCP_ip_port(Workstation&) {}
void readlookupfile(Workstation&) {}
void cmd_comm1_Click(Workstation&) {}
void op_conn_using_serial_Click(Workstation&) {}
void ck_Use_TCP_Click(Workstation&) {}
void cmd_KW_lut_Click(Workstation&) {}
void tmr_stay_logged_in_Timer(Workstation&) {}

void Winsock_state(Workstation& ws) {
    static const char* const texts[] = {
        "Port closed",   "Port open",       "Port listening", "Port pending", "Port resolving",
        "Port resolved", "Port connecting", "Port connected", "Port closing", "Port error"};
    ws.rt.Gsock_state_text = " Unknown state ";
    const int s = ws.Winsock_ombri.State();
    ws.rt.Gsock_state = static_cast<int16_t>(s);
    ws.rt.Gsock_state_text = (s >= 0 && s <= 9) ? texts[s] : texts[0];
    if (s != 7) ws.rt.Guptime_percent = 0;
}

} // namespace acq
