#include "pdf_file.h"

#include <QProcess>
#include <QRegularExpression>

namespace testkit {

namespace {

QString Run(const QString& program, const QStringList& args) {
    QProcess p;
    p.start(program, args);
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

} // namespace

PdfFile ReadPdf(const QString& pdf, int dpi) {
    PdfFile f;
    f.info = Run("pdfinfo", {pdf});
    const auto pages = QRegularExpression("Pages:\\s+(\\d+)\\n").match(f.info);
    if (pages.hasMatch()) f.pages = pages.captured(1).toInt();
    const QString stem = pdf + ".page";
    Run("pdftoppm", {"-r", QString::number(dpi), "-png", "-singlefile", pdf, stem});
    f.page = QImage(stem + ".png");
    return f;
}

} // namespace testkit
