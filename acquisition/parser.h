#pragma once
// The instrument's line format: one call takes what waits in Gline_buffer
// through a fixed list of searches (banners, tagged replies, data packet,
// health line, WITS block).

#include <QString>

class Workstation;

namespace acq {

void Parse_Ombri_String(Workstation& ws);
// "LAGDEPTH " + depth in "0.0", a blank, the check value, CR.
QString LagDepthLine(double lagDepth);
// With the local WITS stream up, the packet's depth and rates come from it.
// True when the fields were replaced.
bool ApplyLocalWitsOverride(Workstation& ws);

} // namespace acq
