// The depth graph left of the strip chart: rate of penetration, gamma and
// lagged gas by whole foot, from the depth arrays, the deepest foot at the
// bottom (at the top when flipped).
#include "chart/chart.h"
#include "chart/curves.h"
#include "depth/lag.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

// Feet shallower than this are not drawn.
constexpr int kShallowest = 100;

bool EndsIn(int foot, QChar a, QChar b = QChar()) {
    const QString t = text::Str(foot);
    return t.endsWith(a) || (!b.isNull() && t.endsWith(b));
}

void Titles(Workstation& ws, station::Canvas& g) {
    const auto& s = ws.fm_setup;
    const double left = ws.chart.RopLeft;
    g.DrawWidth = 1;
    g.FontName = QStringLiteral("Arial");
    g.FontSize = 8;
    g.FontBold = false;
    g.FontTransparent = true;
    auto title = [&](double x, long color, const QString& words) {
        g.ForeColor = color;
        g.CurrentX = x;
        g.CurrentY = 450;
        g.Print(words);
    };
    title(left - 100, colour::Black,
          s.ch_ROP_FtHr.checked() ? "ROP Ft/Hour"
          : s.ck_metric.checked() ? "ROP Min/Met"
                                  : "ROP Min/Ft");
    if (s.ck_gamma.checked()) title(left + 1500, colour::Green, "GAMMA");
    if (s.ck_auto_lag.checked()) title(left + 3300, colour::Red, "GAS UNITS");
}

void GridAndNumbers(Workstation& ws, station::Canvas& g) {
    auto& c = ws.chart;
    const auto& s = ws.fm_setup;
    const auto& rop = ws.settings.RopScale;
    const auto& gas = ws.settings.GasScale;
    const auto& gamma = ws.settings.GammaScale;
    const double span = c.RopRight - c.RopLeft;
    for (int k = 0; k <= 10; ++k) {
        const double x = c.RopLeft + span * k / 10;
        g.Line(x, c.ChartTop, x, c.ChartBottom, colour::Grey);
        auto number = [&](double row, long color, double value, const char* format) {
            g.ForeColor = color;
            g.CurrentX = x - 100;
            g.CurrentY = c.ChartTop - row;
            g.Print(text::Format(value, QString::fromLatin1(format)));
        };
        number(200, colour::Black, (x - c.RopLeft) / rop.PixelsPerUnit,
               rop.ScaleMax < 100 ? "0.0" : "00");
        if (s.ck_gamma.checked())
            number(350, colour::Green, (x - c.RopLeft) / gamma.PixelsPerUnit, "00");
        if (s.ck_auto_lag.checked())
            number(500, colour::Red, (x - c.RopLeft) / gas.PixelsPerUnit, "00");
    }
}

} // namespace

void generate_rop_graph(Workstation& ws, double depth) {
    auto& c = ws.chart;
    if (depth < 0) {
        station::disply_text_alarms(ws, "DB ROP Chart Err: Depth pointer < 0");
        return;
    }
    if (depth > depth::kDeepestFoot) {
        station::disply_text_alarms(ws, "DB ROP Chart Err: Dept is greater than 50,000 ft");
        return;
    }
    if (!c.graph) return;
    station::Canvas& g = *c.graph;
    const auto& s = ws.fm_setup;
    auto& d = ws.depth;

    // The newest stretch of the job into the depth arrays.
    int32_t first = std::max(0, c.LastRecord - 4000);
    int32_t last = c.LastRecord;
    int32_t result = 0;
    if (last > 0) depth::Collect_ROP_Data(ws, first, last, false, result);
    const int deepest = static_cast<int>(text::Fix(depth));

    auto& rop = ws.settings.RopScale;
    auto& gamma = ws.settings.GammaScale;
    const double span = c.RopRight - c.RopLeft;
    FitScale(rop, span);
    FitScale(gamma, span);
    const double gasPpu = ws.settings.GasScale.PixelsPerUnit;

    Titles(ws, g);
    GridAndNumbers(ws, g);

    const bool flipped = ws.settings.Flipped;
    const double perFoot = ws.settings.RopTwipsPerFoot;
    const double dir = flipped ? 1 : -1;
    const bool feetHr = s.ch_ROP_FtHr.checked();
    const bool showGamma = s.ck_gamma.checked();
    const bool showGas = s.ck_auto_lag.checked();
    const bool smooth = s.chk_rop_smooth.checked();
    // The first points stand a hair off the frame.
    const double start = c.RopLeft + gamma.PixelsPerUnit / 100;
    double gammaX = start, gasX = start, ropX = start;
    double y = flipped ? c.ChartTop : c.ChartBottom;
    double gammaY = y, gasY = y, ropY = y;
    g.FontSize = 8;
    g.FontBold = false;
    for (int foot = deepest; foot >= kShallowest; --foot, y += dir * perFoot) {
        if (y < c.ChartTop || y > c.ChartBottom) break;
        const bool tens = EndsIn(foot, u'0');
        const bool fives = EndsIn(foot, u'5');
        if (tens || (fives && perFoot >= 75)) {
            const QString words = text::Str(foot);
            g.ForeColor = colour::Black;
            g.CurrentX = c.RopLeft - g.TextWidth(words) - 10;
            g.CurrentY = y - 100;
            g.Print(words);
        }
        g.DrawWidth = 1;
        if (tens)
            g.Line(c.RopLeft, y, c.RopRight, y, colour::Grey);
        else if (fives)
            g.Line(c.RopLeft, y, c.RopRight, y, colour::LightGrey);
        // The point of a foot stands at its shallow end.
        const double pointY = y - dir * perFoot;
        if (showGamma) {
            const double x =
                std::min(gamma.PixelsPerUnit * d.RopGamma[foot] + c.RopLeft, c.RopRight);
            g.Line(gammaX, gammaY, x, pointY, colour::Green);
            gammaX = x;
            gammaY = pointY;
        }
        if (showGas) {
            // A foot without gas keeps the line where it was.
            double x = gasX;
            if (d.RopLagGas[foot] > 0) x = gasPpu * d.RopLagGas[foot] + c.RopLeft;
            x = std::min(x, c.RopRight);
            g.Line(gasX, gasY, x, pointY, colour::Red);
            gasX = x;
            gasY = pointY;
        }
        const double value = feetHr ? d.RopFtHr[foot] : d.RopMinFt[foot];
        if (value != 0) {
            double x = rop.PixelsPerUnit * value + c.RopLeft;
            if (x > c.RopRight) {
                x = c.RopRight;
                // An overrange shows its true figure.
                const QString words = text::Format(value, u"0.0");
                g.ForeColor = colour::Red;
                g.CurrentX = c.RopRight - g.TextWidth(words);
                g.CurrentY = y + 100;
                g.Print(words);
            }
            if (smooth) {
                g.Line(ropX, ropY, x, pointY, colour::Black);
            } else {
                g.Line(ropX, ropY, x, ropY, colour::Black);
                g.Line(x, ropY, x, pointY, colour::Black);
            }
            ropX = x;
            ropY = pointY;
        }
        station::DoEvents(ws);
    }
}

} // namespace chart
