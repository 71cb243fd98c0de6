// Printing a canvas: the PDF offered where there is no printer, and failures.
#include "pdf_file.h"
#include "test_station.h"
#include "workstation/print_picture_box.h"

#include <gtest/gtest.h>

namespace {

// A picture wider than tall: white with a red block in its left half.
QImage Picture() {
    QImage img(600, 300, QImage::Format_RGB32);
    img.fill(Qt::white);
    for (int y = 50; y < 250; ++y)
        for (int x = 50; x < 250; ++x) img.setPixel(x, y, qRgb(255, 0, 0));
    return img;
}

} // namespace

TEST(PrintPictureBox, WithoutAPrinterTheOperatorGetsOneLandscapePdfPageOfThePicture) {
    testkit::Station b;
    const QString pdf = b.folder.file("chart.pdf");
    b.dialogs.files.push_back(pdf);
    ASSERT_TRUE(station::PrintPictureBox(b.ws, Picture()));
    EXPECT_TRUE(b.ws.fm_help.txt_help.text().contains("PRINTING CHART"));

    const testkit::PdfFile f = testkit::ReadPdf(pdf, 20);
    EXPECT_EQ(f.pages, 1) << f.info.toStdString();
    // Letter turned sideways: 792 x 612 points.
    EXPECT_TRUE(f.info.contains("792 x 612")) << f.info.toStdString();
    // The page rendered back: red where the block is, white right of it.
    const QImage& page = f.page;
    ASSERT_FALSE(page.isNull());
    const auto at = [&](double fx, double fy) {
        return QColor(page.pixel(int(page.width() * fx), int(page.height() * fy)));
    };
    EXPECT_GT(at(0.2, 0.4).red(), 200);
    EXPECT_LT(at(0.2, 0.4).green(), 80);
    EXPECT_GT(at(0.7, 0.4).green(), 200);
}

TEST(PrintPictureBox, ACancelledPdfOrAFailedPrinterIsToldAndTheBoxClosed) {
    struct Case {
        const char* name;
        station::PrintResult::Kind printer;
        QString file;
        QString told;
    } cases[] = {
        {"no printer, no file", station::PrintResult::NoPrinter, {}, "no printer and no PDF file"},
        {"printer fails", station::PrintResult::Failed, {}, "jammed"},
        {"folder missing", station::PrintResult::NoPrinter, "/nonexistent/dir/x.pdf",
         "Print Error"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        testkit::Station b;
        b.ws.services.print_picture = [&](const QImage&) {
            return station::PrintResult{c.printer, "jammed"};
        };
        b.dialogs.files.push_back(c.file);
        EXPECT_FALSE(station::PrintPictureBox(b.ws, Picture()));
        EXPECT_FALSE(b.ws.fm_help.form.visible());
        ASSERT_FALSE(b.dialogs.boxes.empty());
        EXPECT_TRUE(b.dialogs.boxes.back().text.contains(c.told))
            << b.dialogs.boxes.back().text.toStdString();
        EXPECT_TRUE(b.ws.fm_help.txt_help.text().contains("Print Error"));
    }
}
