#pragma once
// Colours that stay readable on a dark chart. The chart's own colours were
// chosen for a white page: black lines and dark blue figures vanish on the
// black background many loggers choose for night shifts. On a dark
// background a pen too close to it is lifted toward white, keeping its hue;
// on a light background every colour is left as chosen.

#include <QColor>

namespace station {

// The colour to paint `color` with on `background` (both red in the low
// byte).
QColor ReadableOn(long color, long background);

} // namespace station
