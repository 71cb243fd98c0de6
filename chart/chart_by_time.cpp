// The strip chart by time: grid and number rows, then hour block after hour
// block from ChartTopRecord until the canvas is full, then the key and the
// position bar. It leaves behind the row tables the mouse reads.
#include "chart/chart.h"
#include "chart/curves.h"
#include "chart/strip.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

void HideLastDraw(ChartState& c) {
    for (auto& l : c.lbl_timedate) l.Visible = false;
    for (auto& l : c.ln_moveable) l.Visible = false;
    for (auto& l : c.lbl_insert_txt) l = station::FloatingLabel{};
    c.HourLabelIndex = 1;
    c.MoveLineIndex = 1;
    c.TextBoxCount = 1;
}

void ComputeScales(Workstation& ws) {
    auto& c = ws.chart;
    const double span = c.CanvasWidth - c.PlotLeft;
    if (ws.fm_setup.op_wits_item.value() == 4) {
        ws.settings.WitsScale.ScaleMin = ws.settings.GammaScale.ScaleMin;
        ws.settings.WitsScale.ScaleMax = ws.settings.GammaScale.ScaleMax;
    }
    for (const Curve& curve : CurvesInDrawOrder()) FitScale(curve.scale(ws), span);
}

void Grid(Workstation& ws, station::Canvas& g) {
    auto& c = ws.chart;
    g.DrawWidth = 1;
    const double span = c.CanvasWidth - c.PlotLeft;
    for (int k = 0; k <= 80; ++k) {
        const double x = c.PlotLeft + span * k / 80;
        g.Line(x, c.ChartTop, x, c.ChartBottom, colour::Grey);
    }
    const auto key = CurvesInKeyOrder();
    g.FontName = QStringLiteral("Arial");
    g.FontSize = 8;
    g.FontBold = false;
    g.FontTransparent = true;
    for (int k = 0; k <= 10; ++k) {
        const double x = c.PlotLeft + span * k / 10;
        g.Line(x, c.ChartTop, x, c.ChartBottom, colour::Black);
        double row = 200;
        for (const Curve* curve : key) {
            if (!curve->shown(ws)) continue;
            const config::ChartScale& s = curve->scale(ws);
            double value = (x - c.PlotLeft) / s.PixelsPerUnit;
            if (!curve->numbersFromZero) value += s.ScaleMin;
            g.ForeColor = curve->legendColor;
            g.CurrentX = x - 125;
            g.CurrentY = c.ChartTop - row;
            g.Print(text::Format(value, QString::fromLatin1(curve->format)));
            row += 150;
        }
    }
    g.Line(c.PlotLeft, c.ChartTop, c.PlotLeft, c.ChartBottom, colour::Black);
    g.Line(c.CanvasWidth, c.ChartTop, c.CanvasWidth, c.ChartBottom, colour::Black);
}

void Legend(Workstation& ws, station::Canvas& g) {
    auto& c = ws.chart;
    g.FontTransparent = true;
    g.FontName = QStringLiteral("Arial");
    g.FontSize = 8;
    g.FontBold = false;
    double row = 200;
    for (const Curve* curve : CurvesInKeyOrder()) {
        if (!curve->shown(ws)) continue;
        g.ForeColor = curve->legendColor;
        g.CurrentX = c.CanvasWidth + 300;
        g.CurrentY = c.ChartTop - row;
        g.Print(LegendOf(ws, *curve));
        row += 150;
    }
}

void PositionBar(Workstation& ws, station::Canvas& g) {
    auto& c = ws.chart;
    const double h = g.Height();
    g.ForeColor = colour::Red;
    g.FontSize = 8;
    g.FontBold = true;
    g.DrawWidth = 2;
    g.Line(75, 1, 75, h, colour::Black);
    const double top = c.ChartTopRecord == 0 ? 1 : c.ChartTopRecord;
    const double last = c.LastRecord == 0 ? 1 : c.LastRecord;
    c.ViewBarY = text::RoundEven(ws.settings.Flipped ? h * top / last : h - h * top / last);
    g.Line(75, c.ViewBarY - 100, 525, c.ViewBarY, colour::Red);
    g.Line(75, c.ViewBarY + 100, 525, c.ViewBarY, colour::Red);
    g.DrawWidth = 1;
    g.FontBold = false;
    if (c.LastRecord <= 1000) return;

    // Depth marks down the bar, a fiftieth of the job apart.
    g.ForeColor = colour::BarGrey;
    g.FontName = QStringLiteral("Arial");
    db::Recordset& rs = ws.db.Grecords;
    double y = h;
    for (int k = 0; k < 50; ++k, y -= h / 50) {
        try {
            const int m = ws.settings.Flipped ? 49 - k : k;
            const int32_t at = static_cast<int32_t>(static_cast<double>(c.LastRecord) * m / 50);
            rs.SetAbsolutePosition(std::max(at, 0));
            const double depth = rs.Fields("DEPTH").toDouble();
            g.CurrentX = 125;
            g.CurrentY = y - 250;
            g.Print(text::Format(std::abs(depth), u"0"));
        } catch (const std::exception&) {
            // A mark that can't be read is left out.
        }
    }
}

void EndOfFile(Workstation& ws, station::Canvas& g) {
    const QString words = QStringLiteral(" End of file");
    g.FontSize = 8;
    g.ForeColor = colour::Black;
    g.CurrentX = (g.Width() - g.TextWidth(words)) / 2;
    g.CurrentY = (g.Height() - g.TextHeight(words)) / 2;
    g.Print(words);
    station::help_msg(ws, "The data base does not have enough data to display yet.");
}

} // namespace

void Chart_by_time(Workstation& ws) {
    auto& c = ws.chart;
    if (!c.graph) return;
    station::Canvas& g = *c.graph;
    station::DoEvents(ws);
    // The settings file may have brought another colour or picture.
    ApplyBackground(ws);
    g.Cls();
    HideLastDraw(c);
    std::fill(c.RowRecordId.begin(), c.RowRecordId.end(), 0);
    std::fill(c.RowDepth.begin(), c.RowDepth.end(), 0.0);
    std::fill(c.RowGas.begin(), c.RowGas.end(), 0.0);
    std::fill(c.RowTime.begin(), c.RowTime.end(), 0.0);
    SetGeometry(ws);
    c.PeakThreshold = ws.settings.GasScale.ScaleMax / 100 * 4;
    ComputeScales(ws);
    c.HourPointer = c.ChartTopRecord;

    Grid(ws, g);
    if (c.HourPointer >= 20) {
        Strip strip(ws, g);
        strip.run();
    } else {
        EndOfFile(ws, g);
    }

    // Finish.
    c.ChartBottomRecord = c.HourPointer;
    g.FontTransparent = true;
    Legend(ws, g);
    PositionBar(ws, g);
    for (int n = 1; n < c.TextBoxCount && n < static_cast<int>(c.lbl_insert_txt.size()); ++n)
        c.lbl_insert_txt[n].Visible = true;
}

// --- the rows ---

Strip::Strip(Workstation& ws, station::Canvas& g)
    : ws_(ws), c_(ws.chart), b_(ws.chart.block), g_(g), s_(ws.fm_setup),
      flipped_(ws.settings.Flipped), zoom_(ws.settings.Zoom) {
    for (const Curve& curve : CurvesInDrawOrder())
        if (curve.values(b_) && curve.id != CurveId::GasUnits && curve.shown(ws))
            plain_.push_back(&curve);
    showGas_ = s_.ch_show_gu.checked();
    showRaw_ = s_.ch_show_chromatograph.checked();
    showC_ = s_.ck_c_values.checked();
    const forms::Control* cBoxes[7] = {&s_.ck_c1,  &s_.ck_c2,  &s_.ck_c3, &s_.ck_ic4,
                                       &s_.ck_nc4, &s_.ck_ic4, &s_.ck_nc4};
    const long cColours[7] = {ws.settings.ColorC1,  ws.settings.ColorC2,  ws.settings.ColorC3,
                              ws.settings.ColorIC4, ws.settings.ColorNC4, ws.settings.ColorIC4,
                              ws.settings.ColorNC4};
    for (int k = 0; k < 7; ++k) {
        cShown_[k] = cBoxes[k]->checked();
        cColour_[k] = cColours[k];
    }
    bold_ = s_.ck_bold_color_lines.checked();
    tenMinutes_ = 240 * zoom_;
}

double Strip::X(double value, const config::ChartScale& s) const {
    return text::RoundEven(value * s.PixelsPerUnit + c_.PlotLeft +
                           std::abs(s.ScaleMin) * s.PixelsPerUnit);
}

bool Strip::pastEnd() const {
    return flipped_ ? y_ < c_.ChartTop : y_ > c_.ChartBottom;
}

void Strip::run() {
    y_ = flipped_ ? c_.ChartBottom : c_.ChartTop;
    c_.GridNextY = y_ + (flipped_ ? -tenMinutes_ : tenMinutes_);
    tableY_ = static_cast<int>(y_);
    for (;;) {
        Read_hour_block_from_db(ws_);
        if (c_.BlockCount == 0) return;
        const double step = (1440.0 / c_.BlockCount) * (c_.BlockMinutes / 60);
        station::DoEvents(ws_);
        seedCValues();
        for (int i = 0; i <= c_.BlockCount && i < kBlockRows; ++i) {
            if (!row(i, step)) return;
        }
        if (c_.HourPointer < 5) return;
    }
}

bool Strip::row(int i, double step) {
    c_.RowsDrawn += 1;
    if (pastEnd()) {
        c_.NextPageHint = c_.ChartTopRecord + (flipped_ ? 10 : -10);
        return false;
    }
    prevY_ = text::RoundEven(y_);
    y_ += flipped_ ? -step * zoom_ : step * zoom_;
    curY_ = text::RoundEven(y_);
    fillTables(i);
    tenMinuteLine();
    curves(i);
    if (b_.hour_TIME_TXT[i].left(2) != c_.LastHourTag) hourLabel(i);
    statusTicks(i);
    DepthTick(ws_, g_, b_.hour_DEPTH[i], y_, i);
    peakTag(i);
    textBox(i);
    return true;
}

void Strip::fillTables(int i) {
    const int target = static_cast<int>(curY_);
    const int dir = flipped_ ? -1 : 1;
    for (int y = tableY_;; y += dir) {
        if (y < 0 || y >= kRowSlots) break;
        if (y > c_.ChartBottom || y < c_.ChartTop) break;
        c_.RowRecordId[y] = b_.hour_ID[i];
        c_.RowDepth[y] = b_.hour_DEPTH[i];
        c_.RowGas[y] = b_.hour_GAS_UNITS[i];
        c_.RowTime[y] = b_.hour_DT[i];
        if (y == target) break;
        if ((target - y) * dir < 0) break;
    }
    tableY_ = target;
}

void Strip::tenMinuteLine() {
    const bool reached = flipped_ ? y_ <= c_.GridNextY : y_ >= c_.GridNextY;
    if (!reached) return;
    c_.GridNextY += flipped_ ? -tenMinutes_ : tenMinutes_;
    if (tenMinutes_ > 100) {
        g_.DrawWidth = 1;
        g_.FontTransparent = true;
        g_.Line(c_.PlotLeft, y_, c_.CanvasWidth, y_, colour::Grey);
    }
}

void Strip::hourLabel(int i) {
    c_.GridNextY = text::RoundEven(y_ + (flipped_ ? -tenMinutes_ : tenMinutes_));
    g_.FontTransparent = true;
    g_.DrawWidth = tenMinutes_ <= 100 ? 1 : 2;
    g_.Line(c_.PlotLeft, y_, c_.CanvasWidth, y_, colour::Black);
    g_.DrawWidth = 1;
    station::FloatingLabel& l = Slot(c_.lbl_timedate, c_.HourLabelIndex);
    l.Left = c_.CanvasWidth - 1050;
    l.Top = flipped_ ? y_ + 25 : y_ - 250;
    l.ForeColor = colour::HourTag;
    l.FontSize = 8;
    l.Caption.clear();
    l.Visible = false;
    const bool onCanvas = flipped_ ? y_ + 25 < c_.ChartBottom : y_ - 250 > c_.ChartTop;
    if (onCanvas) {
        QString day = b_.hour_DATE_TXT[i];
        if (auto d = text::ParseDate(day))
            day = text::FormatDate(QDateTime(*d, QTime(0, 0)), u"MMM DD");
        l.Caption = b_.hour_TIME_TXT[i].left(2) + ":00 " + day;
        l.Visible = true;
    }
    c_.HourLabelIndex += 1;
    c_.LastHourTag = b_.hour_TIME_TXT[i].left(2);
}

void Strip::statusTicks(int i) {
    g_.DrawWidth = 1;
    if (s_.ck_off_bottom.checked() && b_.hour_BIT_DEPTH[i] >= 10 &&
        b_.hour_BIT_DEPTH[i] + 1 < b_.hour_DEPTH[i])
        g_.Line(c_.PlotLeft, y_, c_.PlotLeft + 150, y_, colour::Orange);
    if (s_.ck_pumps_on.checked() && b_.hour_TOTAL_SPM[i] == 0)
        g_.Line(c_.PlotLeft, y_, c_.PlotLeft + 75, y_, colour::Cyan);
    if (s_.ck_show_ins_pac.checked() && b_.hour_INSERTED[i])
        g_.Line(c_.CanvasWidth, y_, c_.CanvasWidth + 100, y_, colour::Red);
    if (s_.ck_edited_geo.checked() && b_.hour_DEPTH[i] != c_.LastEditDepth &&
        b_.hour_DEPTH[i] >= 0) {
        g_.Line(c_.PlotLeft - 100, y_, c_.PlotLeft, y_, colour::Green);
        c_.LastEditDepth = b_.hour_DEPTH[i];
    }
}

void DepthTick(Workstation& ws, station::Canvas& g, double depth, double y, int i) {
    auto& c = ws.chart;
    const auto& s = ws.fm_setup;
    if (!(s.ck_edited_geo.checked() || s.ch_raw_depth.checked()) || i == 0) return;
    if (static_cast<int32_t>(text::Int(depth)) == c.LastTickDepth) return;
    g.FontSize = 8;
    g.FontBold = true;
    g.FontTransparent = true;
    if (depth < 0) {
        // A foot the geolograph never marked.
        g.Line(c.PlotLeft - 275, y, c.PlotLeft, y, colour::Red);
        const QString nf = QStringLiteral("NF");
        g.ForeColor = colour::Red;
        g.CurrentY = y - 100;
        g.CurrentX = c.PlotLeft - 300 - g.TextWidth(nf);
        g.Print(nf);
    } else {
        const int32_t label = c.LastTickDepth;
        c.LastTickDepth = static_cast<int32_t>(text::Int(depth));
        const long color = s.ch_raw_depth.checked() ? colour::Red : colour::Blue;
        g.Line(c.PlotLeft - 250, y, c.PlotLeft, y, color);
        const QString next = text::Str(c.LastTickDepth + 1);
        if (next.endsWith(u'0') || next.endsWith(u'5')) {
            const QString words = text::Str(label);
            g.ForeColor = color;
            g.CurrentY = y - 100;
            g.CurrentX = c.PlotLeft - 275 - g.TextWidth(words);
            g.Print(words);
        }
    }
    g.FontBold = false;
}

void Strip::peakTag(int i) {
    if (!s_.ch_show_peak.checked() || tenMinutes_ < 100) return;
    const double gas = b_.hour_GAS_UNITS[i];
    if (c_.PeakHold > 0) c_.PeakHold -= 1;
    if (c_.PeakHold != 0) {
        c_.PeakValue = gas;
        return;
    }
    if (gas > c_.PeakValue) {
        c_.PeakValue = gas;
        c_.PeakArmed = true;
        c_.PeakY = y_;
    } else if (gas < c_.PeakValue && !c_.PeakArmed) {
        c_.PeakValue = gas;
    }
    if (c_.PeakValue - c_.PeakThreshold >= gas && c_.PeakArmed) {
        c_.PeakHold = 200;
        const config::ChartScale& s = ws_.settings.GasScale;
        g_.ForeColor = colour::Blue;
        g_.FontSize = 8;
        g_.FontBold = true;
        g_.FontTransparent = false;
        g_.CurrentX = c_.PlotLeft + 200 + c_.PeakValue * s.PixelsPerUnit +
                      std::abs(s.ScaleMin) * s.PixelsPerUnit;
        g_.CurrentY = c_.PeakY - 50;
        g_.Print(text::Str(text::Int(c_.PeakValue)));
        g_.FontTransparent = true;
        g_.FontBold = false;
        c_.PeakArmed = false;
    }
}

void Strip::textBox(int i) {
    const QString& words = b_.hour_GAS_TEXT[i];
    if (words.size() <= 3 || b_.hour_ID[i] == lastTextId_) return;
    lastTextId_ = b_.hour_ID[i];
    const QStringList parts = words.split(u'^');
    if (parts.size() < 2) return;
    station::FloatingLabel& l = Slot(c_.lbl_insert_txt, c_.TextBoxCount);
    l.Left = text::Val(parts[0]);
    l.Top = y_;
    l.Caption = parts[1];
    l.Tag = QString::number(b_.hour_ID[i]);
    l.ForeColor = colour::Black;
    c_.TextBoxCount += 1;
}

} // namespace chart
