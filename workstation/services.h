#pragma once
// What the subsystems ask of the layers above them without knowing them:
// a redraw of the chart, and a line out to the instrument. The wiring at
// the top of the program fills these in; on a bare workstation (a test of
// one subsystem) a call does nothing.

#include <QImage>
#include <QString>
#include <functional>

class Workstation;

namespace station {

// What became of a page sent to the printer.
struct PrintResult {
    enum Kind { Printed, NoPrinter, Failed } kind = Printed;
    QString error;
};

struct Services {
    // The one door to a redraw of the gas chart.
    std::function<void(Workstation&)> make_chart;
    // Sends text to the instrument over whatever link is open; false when
    // no link could take it.
    std::function<bool(Workstation&, const QString&)> send_to_instrument;
    // Puts a picture on a page of the default printer. Left empty where no
    // printing system is at hand (tools, tests): that counts as no printer.
    std::function<PrintResult(const QImage&)> print_picture;
};

// Asks for a redraw through the door above; nothing on a bare workstation.
void make_chart(Workstation& ws);

} // namespace station
