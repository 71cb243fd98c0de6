#pragma once
// What the subsystems ask of the layers above them without knowing them:
// a redraw of the chart, and a line out to the instrument. The wiring at
// the top of the program fills these in; on a bare workstation (a test of
// one subsystem) a call does nothing.

#include <QString>
#include <functional>

class Workstation;

namespace station {

struct Services {
    // The one door to a redraw of the gas chart.
    std::function<void(Workstation&)> make_chart;
    // Sends text to the instrument over whatever link is open; false when
    // no link could take it.
    std::function<bool(Workstation&, const QString&)> send_to_instrument;
};

// Asks for a redraw through the door above; nothing on a bare workstation.
void make_chart(Workstation& ws);

} // namespace station
