#pragma once
// Printing a canvas: the chart (cmd_print) and the chromatogram
// (cmd_print_chro) go through this one routine.

#include <QImage>

class Workstation;

namespace station {

// Sends the picture to the default printer, with the information box open
// while it works. Where there is no printer the operator is offered a PDF
// file instead. A failure is told in the box and in a message; the box is
// closed at the end either way. True when the page went out (or was saved).
bool PrintPictureBox(Workstation& ws, const QImage& picture);

} // namespace station
