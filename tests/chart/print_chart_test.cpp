// The print box's own page is print_picture_box_test's.
#include "chart/interaction.h"
#include "chart_fixture.h"
#include "workstation/image_canvas.h"

namespace charttest {
namespace {

TEST_F(ChartTest, PrintingTheChartSendsThePictureShownThenRedraws) {
    run(900, [](Rec& r, int k) { r.set("GAS_UNITS", 20.0 + (k % 120 < 30 ? 60 : 0)); });
    open();
    auto image = std::make_shared<station::ImageCanvas>(1000, 700, 11900);
    int shown = 0;
    image->shown = [&](const QImage&) { ++shown; };
    ws.chart.graph = image;
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
