// The chart on paper: the picture as it stands on screen, then a fresh draw.
#include "chart/chart.h"
#include "chart/interaction.h"
#include "workstation/image_canvas.h"
#include "workstation/print_picture_box.h"
#include "workstation/workstation.h"

namespace chart {

void cmd_print_Click(Workstation& ws) {
    if (auto* image = dynamic_cast<station::ImageCanvas*>(ws.chart.graph.get())) {
        const QImage& shown = image->picture().isNull() ? image->image() : image->picture();
        station::PrintPictureBox(ws, shown);
    }
    make_chart(ws);
}

} // namespace chart
