#pragma once
// Lag depth, rate of penetration by foot, and the stroke total.

class Workstation;

namespace depth {

void RecalculateLag(Workstation& ws, long limit, double fromDepth, double toDepth);
void Collect_ROP_Data(Workstation& ws);
void ReadLastTotalStrokes(Workstation& ws);
void ReadLagTable(Workstation& ws);
void WriteLagTable(Workstation& ws);
void CreateLagTable(Workstation& ws);

} // namespace depth
