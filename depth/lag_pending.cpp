// Depth processing before it is built: the start-up's calls do nothing.
#include "depth/lag.h"

namespace depth {

void RecalculateLag(Workstation&, long, double, double) {}
void Collect_ROP_Data(Workstation&) {}
void ReadLastTotalStrokes(Workstation&) {}
void ReadLagTable(Workstation&) {}
void WriteLagTable(Workstation&) {}
void CreateLagTable(Workstation&) {}

} // namespace depth
