// The curve segments of one row: each joins row i to row i + 1 of the block,
// so the last row of a block is not joined to the next block and a gap of
// one row stands at each hour change. No curve is held in its scale: a
// value past the top runs off the frame, as the paper shows it.
#include "chart/curves.h"
#include "chart/strip.h"
#include "text/numbers.h"

#include <algorithm>

namespace chart {

namespace {

// The peak number the chromatograph puts in the last digit of a raw value,
// read at close zoom: 1 C1 ... 7 NC5.
int PeakDigit(double raw) {
    const QString t = text::Str(raw);
    if (t.size() < 9) return 0;
    const QChar last = t.back();
    if (last < u'1' || last > u'7') return -1;
    return last.unicode() - u'0';
}

} // namespace

void Strip::curves(int i) {
    const int n = c_.BlockCount;
    g_.DrawWidth = 1;
    rawTrace(i);
    for (const Curve* curve : plain_) {
        const std::vector<double>& v = *curve->values(b_);
        config::ChartScale& s = curve->scale(ws_);
        // A few scales grow with what they meet, from the next draw on.
        switch (curve->id) {
        case CurveId::BitDepth:
            if (v[i] > s.ScaleMax) s.ScaleMax += 1000;
            break;
        case CurveId::Custom1:
        case CurveId::Custom2:
        case CurveId::Custom3:
        case CurveId::Custom4:
            if (v[i] > s.ScaleMax) s.ScaleMax += 500;
            break;
        case CurveId::AcVolts:
            if (v[i] > s.ScaleMax) s.ScaleMax = 300;
            break;
        default:
            break;
        }
        const bool joined = curve->id == CurveId::ExhPrs ? i < kBlockLimit : i + 1 < n;
        if (!joined || (curve->skipsFirstRow && i == 0)) continue;
        g_.Line(X(v[i], s), prevY_, X(v[i + 1], s), curY_, curve->curveColor);
    }
    if (showC_) cValues(i);
    if (showGas_) gasUnits(i);
}

void Strip::rawTrace(int i) {
    const int n = c_.BlockCount;
    if (i + 1 < n) {
        if (showRaw_) {
            const auto at = [&](int k) {
                const double x = text::RoundEven(
                    (b_.hour_CGV[k] + b_.hour_CGV_BASE[k]) * c_.CgVisibleGain + c_.RawCgLeft);
                return std::clamp(x, 100.0, 11500.0);
            };
            long color = colour::Blue;
            int width = 1;
            bool draw = true;
            if (zoom_ >= 8) {
                const int digit = PeakDigit(b_.hour_CGV[i + 1]);
                const long peaks[8] = {colour::Blue,          ws_.settings.ColorC1,
                                       ws_.settings.ColorC2,  ws_.settings.ColorC3,
                                       ws_.settings.ColorIC4, ws_.settings.ColorNC4,
                                       ws_.settings.ColorIC4, ws_.settings.ColorNC4};
                if (digit < 0)
                    draw = false;
                else if (digit > 0) {
                    color = peaks[digit];
                    width = bold_ ? 2 : 1;
                }
            }
            if (draw) {
                g_.DrawWidth = width;
                g_.Line(at(i + 1), prevY_, at(i + 2), curY_, color);
                g_.DrawWidth = 1;
            }
        }
        // Marks of the chromatograph's runs, whatever the box.
        if (std::abs(b_.hour_CGTESTNUM[i]) != std::abs(b_.hour_CGTESTNUM[i + 1]))
            g_.Line(c_.RawCgLeft, prevY_, c_.RawCgLeft + 200, prevY_, colour::Red);
    }
    if (b_.hour_CGTESTNUM[i] < 0) {
        // The instrument restarted its test numbers.
        g_.DrawWidth = 1;
        g_.Line(c_.PlotLeft - 350, y_, c_.CanvasWidth + 200, y_, colour::Orange);
        const QString rs = QStringLiteral("RS");
        g_.ForeColor = colour::Orange;
        g_.FontSize = 8;
        g_.FontBold = true;
        g_.FontTransparent = true;
        g_.CurrentX = c_.CanvasWidth + 100 + g_.TextWidth(rs);
        g_.CurrentY = y_ - 100;
        g_.Print(rs);
        g_.FontBold = false;
    }
}

void Strip::seedCValues() {
    for (int k = 0; k < 7; ++k) cPrev_[k] = b_.hour_C[k][std::min(2, kBlockLimit)];
}

void Strip::cValues(int i) {
    if (i + 1 >= c_.BlockCount) return;
    const config::ChartScale& s = ws_.settings.CValueScale;
    g_.DrawWidth = bold_ ? 2 : 1;
    for (int k = 0; k < 7; ++k) {
        // A running half-way smoothing of each gas.
        const double next = (b_.hour_C[k][i + 1] - cPrev_[k]) * 0.5 + cPrev_[k];
        if (cShown_[k]) g_.Line(X(cPrev_[k], s), prevY_, X(next, s), curY_, cColour_[k]);
        cPrev_[k] = next;
    }
    g_.DrawWidth = 1;
}

void Strip::gasUnits(int i) {
    if (i + 1 >= c_.BlockCount) return;
    const config::ChartScale& s = ws_.settings.GasScale;
    const bool marked = s_.ck_line_lag.checked() && b_.hour_LINE_MARK[i];
    g_.DrawWidth = marked ? 2 : 1;
    const double x2 = X(b_.hour_GAS_UNITS[i + 1], s);
    g_.Line(X(b_.hour_GAS_UNITS[i], s), prevY_, x2, curY_, marked ? colour::Green : colour::Red);
    g_.DrawWidth = 1;
    if (lineX_ < 0) {
        lineX_ = X(b_.hour_GAS_UNITS[i], s);
        lineY_ = prevY_;
    }
    if (++gasSegments_ % 100 != 0) return;
    // A coarse copy of the trace as line controls above the canvas.
    station::LineControl& l = Slot(c_.ln_moveable, c_.MoveLineIndex);
    l.X1 = lineX_;
    l.Y1 = lineY_;
    l.X2 = x2;
    l.Y2 = curY_;
    l.BorderColor = colour::Blue;
    l.DrawMode = 11;
    l.Visible = true;
    l.BorderWidth = 1;
    lineX_ = x2;
    lineY_ = curY_;
    c_.MoveLineIndex += 1;
}

} // namespace chart
