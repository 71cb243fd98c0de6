// A small real job drawn on the image canvas: the pixels stand where the
// chart puts its curves and grid, and the print gets the picture shown.
#include "chart/interaction.h"
#include "chart_fixture.h"
#include "workstation/image_canvas.h"

namespace charttest {
namespace {

class ImageChartTest : public ChartTest {
  protected:
    // 1190 pixels across 11900 twips: a pixel is ten twips.
    std::shared_ptr<station::ImageCanvas> image =
        std::make_shared<station::ImageCanvas>(1190, 800, 11900);
    ImageChartTest() { ws.chart.graph = image; }
    QColor at(double xTwips, double yTwips) const {
        return image->image().pixelColor(static_cast<int>(xTwips / 10),
                                         static_cast<int>(yTwips / 10));
    }
    // Within a pixel either way: where a line of whole twips falls.
    template <class Test> bool near(double x, double y, Test test) const {
        for (double dx : {-10.0, 0.0, 10.0})
            for (double dy : {-10.0, 0.0, 10.0})
                if (test(at(x + dx, y + dy))) return true;
        return false;
    }
    static bool isRed(const QColor& c) { return c.red() > 200 && c.green() < 60 && c.blue() < 60; }
    static bool isBlack(const QColor& c) { return c.lightness() < 40; }
};

TEST_F(ImageChartTest, CurveAndGridStandWhereTheValuesPutThem) {
    // Two hours at 75 gas units, on a scale of 0 to 150: the middle of the plot.
    run(1201, [](Rec& r, int) { r.set("GAS_UNITS", 75.0); });
    open();
    draw();
    const auto& c = ws.chart;
    const double middle = c.PlotLeft + (c.CanvasWidth - c.PlotLeft) / 2;
    const double y = c.ChartTop + 400;
    EXPECT_TRUE(near(middle, y, isRed));
    EXPECT_FALSE(near(middle + 300, y, isRed));
    const auto tenth = [&](int k) { return c.PlotLeft + (c.CanvasWidth - c.PlotLeft) * k / 10; };
    EXPECT_TRUE(near(tenth(3), y, isBlack));
    EXPECT_FALSE(near(tenth(3) + 40, y, isBlack));
    // The picture shown has the hour tags over it.
    EXPECT_NE(image->picture(), image->image());

    // On a black ground the grid is drawn light and red stays red.
    ws.settings.BackgroundColor = 0;
    draw();
    EXPECT_TRUE(isBlack(at(c.PlotLeft + 40, y))) << "the background is black";
    EXPECT_TRUE(near(tenth(7), y, [](const QColor& p) { return p.lightness() > 140; }));
    EXPECT_TRUE(near(middle, y, isRed));
}

// The print box's own page is print_picture_box_test's.
TEST_F(ImageChartTest, PrintingTheChartSendsThePictureShownThenRedraws) {
    run(900, [](Rec& r, int k) { r.set("GAS_UNITS", 20.0 + (k % 120 < 30 ? 60 : 0)); });
    open();
    int shown = 0;
    image->shown = [&](const QImage&) { ++shown; };
    draw();
    const QImage onScreen = image->picture();
    QImage printed;
    ws.services.print_picture = [&](const QImage& page) {
        printed = page;
        return station::PrintResult{};
    };
    chart::cmd_print_Click(ws);
    EXPECT_EQ(printed, onScreen);
    EXPECT_EQ(shown, 2) << "the chart is drawn anew after the print";
}

} // namespace
} // namespace charttest
