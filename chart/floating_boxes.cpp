#include "chart/floating_boxes.h"
#include "chart/interaction.h"
#include "workstation/workstation.h"

#include <algorithm>

namespace chart {

namespace {

double Within(double v, double size, double room) {
    return std::max(0.0, std::min(v, room - size));
}

void MoveTo(Workstation& ws, forms::Control& box, double X, double Y) {
    const auto& c = ws.chart;
    const BoxPlace p = PlaceInside(ws, box, X - c.BoxGrabX, Y - c.BoxGrabY);
    box.setPlace(p.Left, p.Top);
}

} // namespace

BoxPlace PlaceInside(const Workstation& ws, const forms::Control& box, double left, double top) {
    const auto& g = ws.chart.graph;
    if (!g) return {left, top};
    return {Within(left, box.width(), g->Width()), Within(top, box.height(), g->Height())};
}

void Box_MouseDown(Workstation& ws, forms::Control& box, int Button, double X, double Y) {
    if (Button != kLeftButton) return;
    auto& c = ws.chart;
    const BoxPlace seen = PlaceInside(ws, box, box.left(), box.top());
    box.setPlace(seen.Left, seen.Top);
    c.DraggedBox = &box;
    c.BoxGrabX = X - seen.Left;
    c.BoxGrabY = Y - seen.Top;
}

void Box_MouseMove(Workstation& ws, forms::Control& box, int Button, double X, double Y) {
    if (ws.chart.DraggedBox != &box || !(Button & kLeftButton)) return;
    MoveTo(ws, box, X, Y);
}

bool Box_MouseUp(Workstation& ws, forms::Control& box, int Button, double X, double Y) {
    if (ws.chart.DraggedBox != &box || Button != kLeftButton) return false;
    MoveTo(ws, box, X, Y);
    ws.chart.DraggedBox = nullptr;
    return true;
}

} // namespace chart
