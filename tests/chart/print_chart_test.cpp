// The chart on paper: with no printer the operator saves one PDF page of the
// picture on screen, and the chart is drawn anew after it.
#include "chart/interaction.h"
#include "chart_fixture.h"
#include "workstation/image_canvas.h"

#include <QProcess>
#include <QRegularExpression>

namespace charttest {
namespace {

QString RunTool(const QString& program, const QStringList& args) {
    QProcess p;
    p.start(program, args);
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

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
    EXPECT_FALSE(ws.fm_help.form.visible());

    const QString info = RunTool("pdfinfo", {pdf});
    EXPECT_TRUE(info.contains(QRegularExpression("Pages:\\s+1\\n"))) << info.toStdString();
    const QString png = folder.file("page");
    RunTool("pdftoppm", {"-r", "60", "-png", "-singlefile", pdf, png});
    const QImage page(png + ".png");
    ASSERT_FALSE(page.isNull());
    if (qEnvironmentVariableIsSet("GASCHART_KEEP_PRINT"))
        page.save(qEnvironmentVariable("GASCHART_KEEP_PRINT"));
    // The gas curve is red on the page, and the grid and text dark: the
    // chart came out, not an empty sheet.
    int red = 0, dark = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) {
            const QColor c(page.pixel(x, y));
            red += c.red() > c.green() + 60 && c.red() > c.blue() + 60;
            dark += c.red() < 80 && c.green() < 80 && c.blue() < 80;
        }
    EXPECT_GT(red, 100);
    EXPECT_GT(dark, 500);
}

} // namespace
} // namespace charttest
