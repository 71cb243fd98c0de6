#pragma once
// A PDF file as a reader of it sees it: pdfinfo's account and the first page
// rendered back to pixels by pdftoppm.

#include <QImage>
#include <QString>

namespace testkit {

struct PdfFile {
    // pdfinfo's output: "Pages:", "Page size:" and the rest.
    QString info;
    // The number of pages pdfinfo counts (0 when it could not read the file).
    int pages = 0;
    // The first page at the asked resolution (null when it did not render).
    QImage page;
};

PdfFile ReadPdf(const QString& pdf, int dpi);

} // namespace testkit
