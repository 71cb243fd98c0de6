// The view of the chart: the one door to a redraw and the buttons that move,
// stretch, flip and reset what it shows.
#include "chart/chart.h"
#include "depth/lag.h"
#include "store/lifecycle.h"
#include "text/numbers.h"
#include "workstation/image_canvas.h"
#include "workstation/select_tool.h"
#include "workstation/workstation.h"

namespace chart {

void Present(Workstation& ws) {
    auto& c = ws.chart;
    if (!c.graph) return;
    station::CanvasControls controls;
    controls.labels[0] = &c.lbl_timedate;
    controls.labels[1] = &c.lbl_insert_txt;
    controls.lines = &c.ln_moveable;
    controls.divider = &c.line_div;
    station::LineControl selecter;
    selecter.X1 = c.ln_selecter_X1;
    selecter.Y1 = c.ln_selecter_Y1;
    selecter.X2 = c.ln_selecter_X2;
    selecter.Y2 = c.ln_selecter_Y2;
    selecter.Visible = ws.fm_Gas_Chart.ln_selecter.visible();
    selecter.BorderColor = ws.fm_Gas_Chart.ln_selecter.foreColor();
    controls.selecter = &selecter;
    controls.pointerLabel = &c.lbl_float;
    c.graph->Present(controls);
}

namespace {

// The first thousand records can't be the top of a page.
constexpr int32_t kPageFloor = 1000;

void RestartCountdown(Workstation& ws) {
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
}

// Where the newest usable record is now: the end of the keyset.
int32_t NewestPosition(Workstation& ws) {
    auto& rs = ws.db.Grecords;
    if (!rs.isOpen() || rs.RecordCount() == 0) return ws.chart.LastRecord;
    rs.MoveLast();
    return rs.AbsolutePosition();
}

} // namespace

void SetGeometry(Workstation& ws) {
    auto& c = ws.chart;
    const bool rop = ws.fm_setup.ck_rop.checked();
    c.CanvasWidth = 10900;
    c.PlotLeft = rop ? 6000 : 1500;
    c.RawCgLeft = rop ? 6200 : 1700;
    c.ChartTop = 1250;
    const double height = c.graph ? c.graph->Height() : 8700;
    c.ChartBottom = text::RoundEven(height - 700);
    c.ChartHeight = c.ChartBottom - c.ChartTop;
    c.RopLeft = 1100;
    c.RopRight = 5100;
    c.line_div.X1 = c.line_div.X2 = 5225;
    c.line_div.Y1 = c.ChartTop;
    c.line_div.Y2 = c.ChartBottom;
}

void SetChartDefaults(Workstation& ws) {
    ws.chart.Gchart_busy = true;
    ws.settings.Flipped = false;
    SetGeometry(ws);
    ApplyBackground(ws);
}

void make_chart(Workstation& ws) {
    auto& c = ws.chart;
    if (ws.depth.RopRebuild) {
        ws.depth.RopRebuild = false;
        depth::Collect_ROP_Data(ws);
    }
    if (c.Gchart_busy || c.Gchart_drawing) return;
    if (!c.graph) return;
    c.Gchart_busy = true;
    c.Gchart_drawing = true;
    c.RowsDrawn = 0;
    c.BlockMaxDepth = 0;
    c.line_div.Visible = false;
    Chart_by_time(ws);
    c.Gchart_drawing = false;
    if (ws.fm_setup.ck_rop.checked()) {
        generate_rop_graph(ws, c.BlockMaxDepth);
        c.line_div.Visible = true;
    }
    Present(ws);
    c.Gchart_busy = false;
}

void cmd_reset_view_Click(Workstation& ws) {
    auto& c = ws.chart;
    station::ClearSelection(ws);
    RestartCountdown(ws);
    if (c.Gchart_busy) {
        // The way out when a failed draw left the flag up: the next press
        // draws.
        c.Gchart_busy = false;
        return;
    }
    if (c.Gchart_drawing) return;
    store::PrimeLastRecord(ws);
    c.ChartTopRecord = c.LastRecord;
    ws.settings.Zoom = 1;
    ws.settings.RopTwipsPerFoot = 14.4 * ws.settings.RopInchesPer100Ft;
    depth::Collect_ROP_Data(ws);
    make_chart(ws);
}

void cmd_zoom_in_Click(Workstation& ws) {
    station::ClearSelection(ws);
    RestartCountdown(ws);
    if (ws.chart.Gchart_busy) return;
    ws.settings.Zoom *= 2;
    make_chart(ws);
}

void cmd_zoom_out_Click(Workstation& ws) {
    station::ClearSelection(ws);
    RestartCountdown(ws);
    if (ws.chart.Gchart_busy) return;
    ws.settings.Zoom /= 2;
    make_chart(ws);
}

namespace {

// A page keeps a tenth of what was shown, for continuity.
int32_t Stepped(const ChartState& c) {
    const double span = std::abs(static_cast<double>(c.ChartTopRecord) - c.ChartBottomRecord);
    return static_cast<int32_t>(text::RoundEven(span - span * 0.1));
}

// Toward the newer records: not past the newest.
void PageNewer(Workstation& ws, bool toTheEnd) {
    auto& c = ws.chart;
    c.ChartTopRecord += Stepped(c);
    if (c.ChartTopRecord > c.LastRecord)
        c.ChartTopRecord = toTheEnd ? NewestPosition(ws) : c.LastRecord;
}

// Toward the older records: not into the first thousand.
void PageOlder(Workstation& ws) {
    auto& c = ws.chart;
    c.ChartTopRecord -= Stepped(c);
    if (c.ChartTopRecord < kPageFloor) c.ChartTopRecord = kPageFloor;
}

} // namespace

void cmd_page_up_Click(Workstation& ws) {
    station::ClearSelection(ws);
    RestartCountdown(ws);
    if (ws.fm_setup.ck_rotate_chart.checked())
        PageOlder(ws);
    else
        PageNewer(ws, false);
    make_chart(ws);
}

void cmd_page_down_Click(Workstation& ws) {
    station::ClearSelection(ws);
    RestartCountdown(ws);
    if (ws.fm_setup.ck_rotate_chart.checked())
        PageNewer(ws, true);
    else
        PageOlder(ws);
    make_chart(ws);
}

void ck_rotate_chart_Click(Workstation& ws) {
    if (ws.loop.Gstarting_up) return;
    ws.settings.Flipped = !ws.settings.Flipped;
    make_chart(ws);
}

void ApplyBackground(Workstation& ws) {
    auto* image = dynamic_cast<station::ImageCanvas*>(ws.chart.graph.get());
    if (ws.chart.graph) ws.chart.graph->BackColor = ws.settings.BackgroundColor;
    if (image) image->setPicture(ws.settings.Gbackground_file);
}

void cmd_Change_Background_Color_Click(Workstation& ws) {
    const auto picked = ws.dialogs().PickColor("SELECT New Color", ws.settings.BackgroundColor);
    if (!picked) return;
    ws.settings.BackgroundColor = *picked;
    ApplyBackground(ws);
    RestartCountdown(ws);
    make_chart(ws);
}

void cmd_Change_Background_Pic_Click(Workstation& ws) {
    const QString file =
        ws.dialogs().OpenFile("SELECT *.JPG FILE FOR BACGROUND PICTURE",
                              "JPG File (*.JPG) | *.jpg;*.JPG | All Files (*.*) | *.*", {});
    if (file.isEmpty()) return;
    ws.settings.Gbackground_file = file;
    ApplyBackground(ws);
    RestartCountdown(ws);
    make_chart(ws);
}

void cmd_Remove_Pic_Click(Workstation& ws) {
    ws.settings.Gbackground_file.clear();
    ApplyBackground(ws);
    RestartCountdown(ws);
    make_chart(ws);
}

} // namespace chart
