#pragma once
// The three once-a-second watches of tmr_refresh that carry state: the WITS
// stream, the line lag, and the instrument link.

class Workstation;

namespace acq {

void SuperviseWits(Workstation& ws);
void SuperviseLineLag(Workstation& ws);
void SuperviseLink(Workstation& ws);

} // namespace acq
