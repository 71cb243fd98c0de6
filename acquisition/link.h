#pragma once
// The one link to the instrument: serial scan, TCP connect, supervision
// state, and the setup controls that change the link.

#include <QString>

class Workstation;

namespace acq {

void SerialFindKettlewick(Workstation& ws);
void Close_Serialport(Workstation& ws);
void winsock_connect(Workstation& ws);
void close_winsock(Workstation& ws);
void Winsock_state(Workstation& ws);
void Check_TCP_ip_port(Workstation& ws);
void readlookupfile(Workstation& ws);
// Sends text to the instrument on the wire in use; false when it is not open.
bool SendToInstrument(Workstation& ws, const QString& line);
// The scan or the connect, whichever the link setting asks for.
void ConnectInstrument(Workstation& ws);
// The link button while the watchdog counts: what the wire in use shows.
void ShowLinkCountdown(Workstation& ws, bool connected);
// The button's colour for the link quality the instrument reports.
long UptimeColour(double uptime);

// The link button after a close: disconnected, or forced off.
void ShowDisconnected(Workstation& ws);

void cmd_comm1_Click(Workstation& ws);
void op_conn_using_serial_Click(Workstation& ws);
void ck_Use_TCP_Click(Workstation& ws);
void cmd_KW_lut_Click(Workstation& ws);

} // namespace acq
