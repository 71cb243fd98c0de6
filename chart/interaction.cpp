// The mouse and the keys on the chart canvas. Y positions become records
// through the row tables the last draw left; a mouse event can come during
// the DoEvents of a draw, when the tables are partly filled, so a 0 in them
// is an empty row and never an error.
#include "chart/interaction.h"
#include "chart/chart.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/select_tool.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

int Slot(double y) {
    return std::clamp(static_cast<int>(std::lround(y)), 0, kRowSlots - 1);
}

QDateTime FromDayNumber(double day) {
    const double whole = std::floor(day);
    const qint64 seconds = std::llround((day - whole) * 86400.0);
    return QDateTime(QDate(1899, 12, 30).addDays(static_cast<qint64>(whole)), QTime(0, 0))
        .addSecs(seconds);
}

// A span of a day number as hours, minutes and seconds.
QString Clock(double days) {
    const qint64 seconds = std::llround(std::abs(days) * 86400.0);
    return text::FormatDate(QDateTime(QDate(2000, 1, 1), QTime(0, 0)).addSecs(seconds),
                            u"HH:MM:SS");
}

bool InTickBand(const ChartState& c, double X) {
    return X > c.PlotLeft - 300 && X <= c.PlotLeft;
}

void ShowSelecter(Workstation& ws, double x1, double y1, double x2, double y2) {
    auto& c = ws.chart;
    c.ln_selecter_X1 = x1;
    c.ln_selecter_Y1 = y1;
    c.ln_selecter_X2 = x2;
    c.ln_selecter_Y2 = y2;
    ws.fm_Gas_Chart.ln_selecter.setVisible(true);
}

void HideSelecter(Workstation& ws) {
    ws.fm_Gas_Chart.ln_selecter.setVisible(false);
}

void ShowFloat(Workstation& ws, double left, double top, const QString& caption) {
    auto& f = ws.chart.lbl_float;
    f.Left = left;
    f.Top = top;
    f.Caption = caption;
    f.Visible = true;
}

// The level line and read-out of one row, as the geolograph commands want
// it: they take their record from the line's Y.
void MarkLevel(Workstation& ws, double Y, int row) {
    const auto& c = ws.chart;
    const int y = Slot(Y);
    ShowSelecter(ws, c.PlotLeft - 300, y, c.CanvasWidth + 300, y);
    ShowFloat(ws, c.PlotLeft + 300, y + 50,
              text::Format(c.RowDepth[row], u"0.0 Ft  ") +
                  text::FormatDate(FromDayNumber(c.RowTime[row]), u"HH:MM:SS"));
}

void ReadOut(Workstation& ws, int row) {
    const auto& c = ws.chart;
    const QString line =
        text::Format(c.RowGas[row], u"    0.0 GU") + "     " + c.UnitSerial +
        text::FormatDate(FromDayNumber(c.RowTime[row]), u"YYYY/MMM/DD   HH:MM:SS  ") +
        text::Format(c.RowDepth[row], u"   0.0 Ft");
    ws.fm_Gas_Chart.lbl_time_depth.setCaption(line.contains("1899") ? c.UnitSerial : line);
}

// The far end of a selection follows the pointer from the first corner.
void StretchSelection(Workstation& ws, double X, double Y, int row) {
    const auto& c = ws.chart;
    ShowSelecter(ws, c.SelectStartX, c.SelectStartY, X, Y);
    const int start = Slot(c.SelectStartY);
    QString caption;
    if (X > c.PlotLeft)
        caption = Clock(c.RowTime[start] - c.RowTime[row]);
    else
        caption = text::Format(c.RowDepth[row], u"0.0  ") +
                  text::Format(c.RowDepth[row] - c.RowDepth[start], u"0.0 Ft");
    ShowFloat(ws, X + 200, Y, caption);
}

// The hour tags and text boxes slide with the pointer, so that the picture
// seems to move before it is drawn anew.
void Slide(Workstation& ws, double dy) {
    auto& c = ws.chart;
    const auto limit = [](auto& v, std::size_t n) { return std::min(v.size(), n + 1); };
    for (std::size_t n = 1; n < limit(c.lbl_timedate, 100); ++n) c.lbl_timedate[n].Top += dy;
    for (std::size_t n = 1; n < limit(c.lbl_insert_txt, 1000); ++n) c.lbl_insert_txt[n].Top += dy;
}

// The end of a chart drag: the record under the press comes to lie under
// the release, or, when the shift key was let go first, the chart stays
// where it was.
void EndDrag(Workstation& ws, double Y, bool move) {
    auto& c = ws.chart;
    c.Dragging = false;
    station::ClearSelection(ws);
    ws.fm_Gas_Chart.sel_type.setVisible(false);
    if (move && Y >= 1) c.ChartTopRecord += c.DragStartId - c.RowRecordId[Slot(Y)];
    c.ChartTopRecord = std::min(c.ChartTopRecord, c.LastRecord);
    // No page starts before the first record.
    c.ChartTopRecord = std::max(c.ChartTopRecord, 0);
    make_chart(ws);
}

// The position bar stands for the whole job, the newest record at its top
// (at its bottom when time runs up).
void Jump(Workstation& ws, double Y) {
    auto& c = ws.chart;
    const double height = c.graph ? c.graph->Height() : 0;
    if (height <= 0) return;
    double f = Y / height;
    if (ws.settings.Flipped) f = 1 - f;
    c.ChartTopRecord = static_cast<int32_t>(text::Int((1 - f) * c.LastRecord));
    c.HourPointer = c.ChartTopRecord;
    station::ClearSelection(ws);
    ws.fm_Gas_Chart.sel_type.setVisible(false);
    make_chart(ws);
}

// The box opens left of the tick band the pointer is in, at the pointer's
// height, or 3000 twips higher near the bottom so that all of it shows.
void OpenGeoEdit(Workstation& ws, double X, double Y, int row) {
    auto& fm = ws.fm_Gas_Chart;
    const double height = ws.chart.graph ? ws.chart.graph->Height() : 0;
    fm.Geo_edit.setPlace(X - 3300, Y > height - 3000 ? Y - 3000 : Y);
    fm.Geo_edit.setVisible(true);
    fm.sel_type.setVisible(false);
    fm.Frame6.setVisible(false);
    MarkLevel(ws, Y, row);
}

} // namespace

int PointerRow(Workstation& ws, double Y) {
    auto& c = ws.chart;
    if (Y >= c.ChartBottom) Y = c.ChartBottom - 100;
    const int y = Slot(Y);
    if (c.RowDepth[y] == 0 && c.RowTime[y] == 0) return c.LastGoodY;
    c.LastGoodY = y < 10 ? y : y - 10;
    return c.LastGoodY;
}

void graph_MouseMove(Workstation& ws, int Button, int Shift, double X, double Y) {
    auto& c = ws.chart;
    c.PointerX = X;
    c.PointerY = Y;
    const int row = PointerRow(ws, Y);
    if (c.Gchart_busy) return;
    c.MousePointer = X < 200 || InTickBand(c, X) ? kUpDownArrow : 0;
    ReadOut(ws, row);

    const bool left = Button & kLeftButton;
    if (c.Dragging && left && (Shift & kShiftMask)) {
        Slide(ws, Y - c.DragLastY);
        c.DragLastY = Y;
    } else if ((Button & kRightButton) && InTickBand(c, X)) {
        MarkLevel(ws, Y, row);
        ws.fm_Gas_Chart.sel_type.setVisible(false);
    } else if (left && InTickBand(c, X)) {
        c.lbl_float.Visible = false;
        HideSelecter(ws);
    } else if (c.SelectStartX >= 1 && c.SelectEndX < 0 && ws.fm_Gas_Chart.ln_selecter.visible()) {
        StretchSelection(ws, X, Y, row);
    }
    if (c.PlacingTextBox > 0 && Button == 0 &&
        c.PlacingTextBox < static_cast<int>(c.lbl_insert_txt.size())) {
        auto& l = c.lbl_insert_txt[c.PlacingTextBox];
        l.Left = X + 200;
        l.Top = Y;
    }
    Present(ws);
}

void graph_MouseDown(Workstation& ws, int Button, int Shift, double X, double Y) {
    auto& c = ws.chart;
    c.ButtonsHeld |= Button;
    c.PointerX = X;
    c.PointerY = Y;
    if (c.Gchart_busy) return;
    if (Button == kLeftButton && (Shift & kShiftMask)) {
        c.DragStartId = c.RowRecordId[Slot(Y)];
        c.Dragging = true;
        c.DragLastY = Y;
    }
}

void graph_MouseUp(Workstation& ws, int Button, int Shift, double X, double Y) {
    auto& c = ws.chart;
    auto& fm = ws.fm_Gas_Chart;
    c.ButtonsHeld &= ~Button;
    if (c.Gchart_busy) {
        c.Dragging = false;
        return;
    }
    const bool left = Button == kLeftButton;
    if (left && (Shift & kShiftMask) && c.Dragging) {
        EndDrag(ws, Y, true);
        return;
    }
    if (left) c.Dragging = false;
    if (left && c.PlacingTextBox > 0) {
        DropTextBox(ws, X, Y);
    } else if (left && X < 195) {
        Jump(ws, Y);
    } else if (left) {
        if (fm.Frame6.visible()) fm.Frame6.setVisible(false);
    } else if (Button == kRightButton && (X > c.PlotLeft || X <= c.PlotLeft - 200)) {
        fm.Frame6.setVisible(true);
        fm.Geo_edit.setVisible(false);
        fm.sel_type.setVisible(false);
    } else if (Button == kRightButton) {
        OpenGeoEdit(ws, X, Y, PointerRow(ws, Y));
        Present(ws);
    }
}

void graph_DblClick(Workstation& ws) {
    auto& c = ws.chart;
    if (c.Gchart_busy || c.PointerX <= c.PlotLeft) return;
    c.Grefresh_count = c.Grefresh_seconds;
    const double X = c.PointerX;
    const double Y = c.PointerY;
    if (Y < c.ChartTop || Y > c.ChartBottom) return;
    if (c.RowRecordId[Slot(Y)] == 0) return;
    if (c.SelectStartX < 0) {
        c.SelectStartX = static_cast<int32_t>(std::lround(X));
        c.SelectStartY = Slot(Y);
        ShowSelecter(ws, c.PlotLeft, c.SelectStartY, c.CanvasWidth, c.SelectStartY);
        ShowFloat(ws, X + 200, Y, QStringLiteral("0 Min"));
    } else if (c.SelectEndX < 0) {
        c.SelectEndX = static_cast<int32_t>(std::lround(X));
        c.SelectEndY = Slot(std::clamp(Y, c.ChartTop, c.ChartBottom));
        ws.fm_Gas_Chart.sel_type.setPlace(X, c.SelectEndY);
        ws.fm_Gas_Chart.sel_type.setVisible(true);
    }
    Present(ws);
}

void graph_KeyPress(Workstation& ws, int KeyAscii) {
    auto& c = ws.chart;
    if (KeyAscii != kEscape || c.Gchart_busy) return;
    station::ClearSelection(ws);
    c.ChosenTextBox = 0;
    ws.fm_Gas_Chart.Geo_edit.setVisible(false);
    ws.fm_Gas_Chart.sel_type.setVisible(false);
    Present(ws);
}

void graph_KeyUp(Workstation& ws, int, int Shift) {
    auto& c = ws.chart;
    // The shift key let go with the left button still down: the drag ends
    // where it began.
    if (!c.Dragging || !(c.ButtonsHeld & kLeftButton) || (Shift & kShiftMask)) return;
    if (c.Gchart_busy) return;
    EndDrag(ws, 0, false);
}

} // namespace chart
