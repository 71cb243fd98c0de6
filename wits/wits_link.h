#pragma once
// What the instrument packet path needs of the local WITS link: the rate of
// penetration worked out from the local stream, and the frame of gas
// results sent back to the EDR.

class Workstation;

namespace wits {

// Minutes per foot and feet per hour from the local stream's foot counting.
double WitsMinFt(Workstation& ws);
double WitsFtHr(Workstation& ws);
// Prepares the frame of gas results for the EDR from the newest packet.
void Send_Serial_WITS(Workstation& ws);

} // namespace wits
