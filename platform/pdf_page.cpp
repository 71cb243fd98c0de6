#include "platform/pdf_page.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace platform {

QPageLayout::Orientation PageTurnFor(const QImage& picture) {
    return picture.width() > picture.height() ? QPageLayout::Landscape : QPageLayout::Portrait;
}

void DrawFitted(QPainter& painter, const QImage& picture) {
    const QRect page = painter.viewport();
    painter.drawImage(
        QRect(page.topLeft(), picture.size().scaled(page.size(), Qt::KeepAspectRatio)), picture);
}

QString WriteImagePdf(const QImage& picture, const QString& path, const QString& title) {
    if (picture.isNull()) return QStringLiteral("There is no picture to print.");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return file.errorString();
    {
        QPdfWriter pdf(&file);
        pdf.setTitle(title);
        pdf.setCreator(QStringLiteral("gaschart"));
        pdf.setResolution(300);
        pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), PageTurnFor(picture),
                                      QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter));
        QPainter painter;
        if (!painter.begin(&pdf)) {
            file.cancelWriting();
            return QStringLiteral("The PDF file could not be started.");
        }
        DrawFitted(painter, picture);
        painter.end();
    }
    if (!file.commit()) return file.errorString();
    return {};
}

} // namespace platform
