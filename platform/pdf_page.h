#pragma once
// A picture on one PDF page: the stand-in for a printer on a machine that
// has none.

#include <QImage>
#include <QPageLayout>
#include <QString>

class QPainter;

namespace platform {

// A page for the picture the way a printer gets it too: landscape when the
// picture is wider than tall, and the picture drawn at the top left of the
// page, scaled to fit it whole.
QPageLayout::Orientation PageTurnFor(const QImage& picture);
void DrawFitted(QPainter& painter, const QImage& picture);

// Writes the picture onto one page, turned to landscape when it is wider
// than tall and scaled to fit the page inside its margins. The file appears
// whole or not at all. Returns an empty text, or what went wrong.
QString WriteImagePdf(const QImage& picture, const QString& path, const QString& title);

} // namespace platform
