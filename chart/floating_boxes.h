#pragma once
// The boxes that float over the chart canvas: the control box Frame6, the
// Select Items Box sel_type and the Geolograph Edit Box Geo_edit. The
// operator drags each by the left button and it follows the pointer, but
// never past the canvas's edges, so a box cannot be lost off the screen.
// Points are twips of the canvas, as for the canvas's own mouse events.

class Workstation;

namespace forms {
class Control;
}

namespace chart {

struct BoxPlace {
    double Left = 0;
    double Top = 0;
};

// The place nearest (left, top) at which the whole box lies on the canvas;
// a box larger than the canvas keeps its top left corner on it. Without a
// canvas any place will do.
BoxPlace PlaceInside(const Workstation& ws, const forms::Control& box, double left, double top);

// The left button takes hold of a box, moves it and lets it go. A drag
// starts from where the box is seen, which is its place brought inside.
void Box_MouseDown(Workstation& ws, forms::Control& box, int Button, double X, double Y);
void Box_MouseMove(Workstation& ws, forms::Control& box, int Button, double X, double Y);
// True when this release ended a drag of the box.
bool Box_MouseUp(Workstation& ws, forms::Control& box, int Button, double X, double Y);

} // namespace chart
