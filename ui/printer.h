#pragma once
// The page on the default printer, for the print commands.

#include "workstation/services.h"

namespace ui {

// Prints the picture on one page of the default printer, scaled to fit.
// NoPrinter when the system has no default printer.
station::PrintResult PrintOnDefaultPrinter(const QImage& picture);

} // namespace ui
