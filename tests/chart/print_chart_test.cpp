// The chart on paper: with no printer the operator saves one PDF page of the
// picture on screen, and the chart is drawn anew after it.
#include "chart/interaction.h"
#include "chart_fixture.h"
#include "pdf_file.h"
#include "workstation/image_canvas.h"

namespace charttest {
namespace {

TEST_F(ChartTest, PrintingTheChartGivesOnePdfPageOfThePictureThenARedraw) {
    run(900, [](Rec& r, int k) {
        r.set("DEPTH", 1000.0 + k / 10).set("DEPTH_RAW", 1000.0 + k / 10);
        r.set("GAS_UNITS", 20.0 + (k % 120 < 30 ? 60 : 0));
    });
    open();
    auto image = std::make_shared<station::ImageCanvas>(1000, 700, 11900);
    int shown = 0;
    image->shown = [&](const QImage&) { ++shown; };
    ws.chart.graph = image;
    draw();
    ASSERT_EQ(shown, 1);

    const QString pdf = folder.file("chart.pdf");
    dialogs.files.push_back(pdf);
    chart::cmd_print_Click(ws);
    EXPECT_EQ(shown, 2) << "the chart is drawn anew after the print";

    const testkit::PdfFile f = testkit::ReadPdf(pdf, 60);
    EXPECT_EQ(f.pages, 1) << f.info.toStdString();
    ASSERT_FALSE(f.page.isNull());
    // The gas curve is red on the page, and the grid and text dark: the
    // chart came out, not an empty sheet.
    int red = 0, dark = 0;
    for (int y = 0; y < f.page.height(); ++y)
        for (int x = 0; x < f.page.width(); ++x) {
            const QColor c(f.page.pixel(x, y));
            red += c.red() > c.green() + 60 && c.red() > c.blue() + 60;
            dark += c.red() < 80 && c.green() < 80 && c.blue() < 80;
        }
    EXPECT_GT(red, 100);
    EXPECT_GT(dark, 500);
}

} // namespace
} // namespace charttest
