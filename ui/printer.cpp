#include "ui/printer.h"

#include "platform/pdf_page.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace ui {

station::PrintResult PrintOnDefaultPrinter(const QImage& picture) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) return {station::PrintResult::NoPrinter, {}};
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setPageOrientation(platform::PageTurnFor(picture));
    printer.setDocName(QStringLiteral("Printing Chart"));
    QPainter painter;
    if (!painter.begin(&printer))
        return {station::PrintResult::Failed,
                QStringLiteral("The printer %1 could not be opened.").arg(info.printerName())};
    platform::DrawFitted(painter, picture);
    if (!painter.end())
        return {station::PrintResult::Failed,
                QStringLiteral("The page did not reach the printer %1.").arg(info.printerName())};
    return {};
}

} // namespace ui
