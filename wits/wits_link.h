#pragma once
// The local WITS link to the rig's data recorder on MSComm2: the search of
// the serial ports, the intake and parse of the stream, the rate of
// penetration worked out from it, and the frame of gas results sent back.

#include <QString>

class Workstation;

namespace forms {
class Control;
}

namespace wits {

// Receive buffer limit: while the stream is not yet trusted the buffer only
// grows, so past this the oldest text goes (a frame is a few hundred
// characters; this keeps dozens of them).
constexpr int kInBufferLimit = 16384;
// The raw views on the panel: past the high mark they keep the last low.
constexpr int kRawViewHigh = 20000;
constexpr int kRawViewLow = 19000;

// Probes ports 1 to 20, three passes, for a WITS stream; yields while it
// waits on each port. Leaves the port open when found.
void SerialFindWITS(Workstation& ws);
// Walks the lines of WITS_in_buffer into the value slots, the display list,
// the foot counting and the pump button; empties the buffer.
void Parse_WITS_String(Workstation& ws);
// Text just read from the port: onto the receive buffer (bounded) and the
// incoming view.
void ReceiveWitsText(Workstation& ws, const QString& got);
// The frame test and the parse that follow every intake.
void ServeWitsBuffer(Workstation& ws);

// Text onto one of the raw views, keeping it under its high mark.
void AppendToRawView(forms::Control& box, const QString& text);

// Panel handlers.
void ck_Use_Local_WITS_Click(Workstation& ws);
void cmd_Search_For_WITS_Click(Workstation& ws);
void txt_Raw_WITS_Out_DblClick(Workstation& ws);

// Minutes per foot and feet per hour from the local stream's foot counting.
double WitsMinFt(Workstation& ws);
double WitsFtHr(Workstation& ws);
// Prepares the frame of gas results for the EDR from the newest packet; the
// transmit tick sends it.
void Send_Serial_WITS(Workstation& ws);

// The pump button from Gspm, after every WITS frame of either path.
void ShowPumps(Workstation& ws);
// The line of the display list for one item: code as four digits (a "0" in
// front below 1000), name and value.
QString WitsDisplayLine(const Workstation& ws, int code, double value);

} // namespace wits
