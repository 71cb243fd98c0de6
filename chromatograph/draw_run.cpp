// The picture of one run on pb_chro: the detector trace at left, coloured
// where the instrument says a peak window is open and labelled where it says
// a peak was found, and the fixed-column report at right.
//
// CGV carries two digits of the instrument's own after the volts: the eighth
// character of its text is the number of the last peak found (1 to 7, C1 ..
// NC5), the ninth the peak window the sample falls in.

#include "chromatograph/chromatograph.h"
#include "chromatograph/peaks.h"
#include "db/job_error.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/image_canvas.h"
#include "workstation/messages.h"
#include "workstation/print_picture_box.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace chromatograph {

namespace {

constexpr double kTraceLeft = 300;
constexpr double kTraceWidth = 4500 - 300 - 100;
constexpr double kMargin = 150;
constexpr double kReportLeft = 4700;
constexpr long kRed = 255;
constexpr long kBaseLine = 0xA0A0A0;

// The peak digit (character 8) or window digit (character 9) of a sample;
// -1 when the text is too short to carry it.
int Digit(const QString& text, int character) {
    if (text.size() < character) return -1;
    return static_cast<int>(text::Val(text.mid(character - 1, 1)));
}

QString GasText(double v) {
    return text::Format(v, v < 100 ? u"0.00" : u"0.0");
}

QString DateText(const QString& date) {
    const auto d = text::ParseDate(date);
    if (!d) return date;
    return text::FormatDate(QDateTime(*d, QTime(0, 0)), u"YYYY/MMM/DD");
}

int64_t SecondsInto(const CgRun& r, int i) {
    if (!r.CgTimes[0].isValid() || !r.CgTimes[i].isValid()) return 0;
    return r.CgTimes[0].secsTo(r.CgTimes[i]);
}

// The peak tables and GoodPeaks from the digits of the samples.
void PeakTimes(Workstation& ws) {
    ChroState& s = ws.chro;
    CgRun& r = s.run;
    s.PeakSeconds.fill(0);
    s.PeakTimeText.fill(QStringLiteral("00:00"));
    s.GoodPeaks = 0;
    if (r.CgCount >= 1) {
        const int g = Digit(text::Str(r.CgSamples[r.CgCount - 1]), 8);
        if (g >= 0) s.GoodPeaks = g;
    }
    if (r.CgCount < 15) r.CgIncomplete = true;
    int last = 0;
    for (int i = 0; i <= r.CgCount; ++i) {
        const int d = Digit(text::Str(r.CgSamples[i]), 8);
        if (d < 0 || d == last) continue;
        last = d;
        const auto secs = static_cast<int32_t>(SecondsInto(r, i));
        s.PeakSeconds[d] = secs;
        const double minutes = text::Int(secs / 60.0);
        s.PeakTimeText[d] =
            text::Format(minutes, u"00") + ":" + text::Format(secs - 60 * minutes, u"00");
    }
}

struct Geometry {
    double xStep = 0;
    double zeroY = 0;
    double gain = 0;
    double base = 0;
    double bottom = 0;
    double y(double sample) const { return zeroY - 2 * (base + sample) * gain; }
    // Where a label stands: a tall peak holds it at 400, and it never falls
    // off the bottom.
    double labelY(double y) const { return std::clamp(y, 400.0, bottom); }
};

void Trace(Workstation& ws, station::Canvas& cv, const Geometry& g) {
    ChroState& s = ws.chro;
    const CgRun& r = s.run;
    const int bold = ws.fm_setup.ck_bold_color_lines.checked() ? 2 : 1;
    double x = kTraceLeft;
    for (int i = 0; i < r.CgCount; ++i) {
        const double y1 = g.y(r.CgSamples[i]);
        const double y2 = g.y(r.CgSamples[i + 1]);
        cv.DrawWidth = 1;
        cv.Line(x, y1, x + g.xStep, y2, 0);
        const int w = Digit(text::Str(r.CgSamples[i]), 9);
        if (w >= 1 && w <= kGases && s.TimingLinesOn) {
            cv.DrawWidth = bold;
            cv.Line(x, y1, x + g.xStep, y2, PeakColor(ws, w));
        }
        x += g.xStep;
    }
    cv.DrawWidth = 1;
}

// The gas names that mark the expected time of a peak the instrument did
// not count, and how many good peaks still leave each one unmarked.
struct TimeLabel {
    int peak;
    int goodPeaksAtMost;
};
constexpr TimeLabel kTimeLabels[] = {{1, 0}, {2, 1}, {3, 2}, {4, 4}, {5, 3}};

void PeakLabels(Workstation& ws, station::Canvas& cv, const Geometry& g) {
    ChroState& s = ws.chro;
    const CgRun& r = s.run;
    if (!s.TimingLinesOn) return;
    const int bold = ws.fm_setup.ck_bold_color_lines.checked() ? 2 : 1;
    int last = 0;
    int windowStart = 0;
    struct {
        double x = 0, y = 0, w = 0, h = 0;
    } prev; // the box of the last peak name printed
    for (int i = 0; i <= r.CgCount; ++i) {
        const double x = kTraceLeft + i * g.xStep;
        const double y = g.labelY(g.y(r.CgSamples[i]));
        const int64_t elapsed = SecondsInto(r, i);
        for (const TimeLabel& t : kTimeLabels) {
            if (s.PeakSeconds[t.peak] > 0 && elapsed >= s.PeakSeconds[t.peak] &&
                s.GoodPeaks <= t.goodPeaksAtMost) {
                cv.CurrentX = x;
                cv.CurrentY = y - 250;
                cv.ForeColor = kRed;
                cv.Print(PeakName(t.peak));
                s.PeakSeconds[t.peak] = 0;
            }
        }
        const int d = Digit(text::Str(r.CgSamples[i]), 8);
        if (d < 0 || d == last) continue;
        last = d;
        // The top of the window that has just closed.
        int top = windowStart;
        for (int k = windowStart; k <= i; ++k)
            if (r.CgSamples[k] > r.CgSamples[top]) top = k;
        windowStart = i;
        const double px = kTraceLeft + top * g.xStep;
        const double py = g.labelY(g.y(r.CgSamples[top]));
        cv.CurrentX = px - 100;
        cv.CurrentY = py - 250;
        cv.DrawWidth = bold;
        if (d >= 1 && d <= kGases && s.GoodPeaks >= d) {
            // Peaks a sample or two apart (IC5 after NC4) would print one
            // name over the other: the later name stands just above.
            const QString name = PeakName(d);
            const double w = cv.TextWidth(name), h = cv.TextHeight(name);
            if (prev.h > 0 && cv.CurrentX < prev.x + prev.w && prev.x < cv.CurrentX + w &&
                cv.CurrentY < prev.y + prev.h && prev.y < cv.CurrentY + h)
                cv.CurrentY = prev.y - h;
            prev = {cv.CurrentX, cv.CurrentY, w, h};
            cv.ForeColor = PeakColor(ws, d);
            cv.Print(name);
            cv.Line(px, py, px, py + 500, PeakColor(ws, d));
        }
        cv.DrawWidth = 1;
    }
}

QStringList ReportLines(Workstation& ws) {
    const ChroState& s = ws.chro;
    const CgRun& r = s.run;
    QStringList out;
    out << "  Kettlewick Chromatograph";
    if (r.CgEndOfData)
        out << "END OF DATA BASE";
    else if (r.CgIncomplete)
        out << "INCOMPLETE CG";
    double sum = 0;
    for (double c : r.CgC) sum += c;
    out << "        Lagged Depth: " + text::Str(r.CgLagDepth)
        << "               Depth: " + text::Str(r.CgDepth)
        << (r.CgBitDepth == 0 ? QStringLiteral("           Bit Depth: NO WITS")
                              : "           Bit Depth: " + text::Str(r.CgBitDepth))
        << "   SN And Job Number: " + r.CgSerial << "         Sample Time: " + r.CgTimeText
        << "         Sample Date: " + DateText(r.CgDateText)
        << "     GU At Injection: " + text::Str(r.CgGasUnits)
        << "        Injection ID: " + text::Str(r.CgTestNum)
        << "   Calc CG Gas Units: " + GasText(sum);
    static const char* const calc[kGases] = {
        "     Calc Methane C1: ", "      Calc Ethane C2: ", "     Calc Propane C3: ",
        "   Calc I Butane IC4: ", "   Calc N Butane NC4: ", "  Calc I Pentane IC5: ",
        "  Calc N Pentane NC5: "};
    for (int g = 0; g < kGases; ++g)
        out << calc[g] + GasText(r.CgC[g]) + " (" + GasText(r.CgPct[g]) + "%) ";
    out << "      Minutes Per Ft: " + text::Str(r.CgMinFt)
        << "       Feet Per Hour: " + text::Str(r.CgFtHr)
        << "  Sample Attenuation: " + text::Str(r.CgAtten)
        << "     Liters Per Hour: " + text::Str(r.CgLph)
        << "      Carbon Dioxide: " + text::Str(r.CgCo2)
        << "              Oxygen: " + text::Str(r.CgO2)
        << "         Column Temp: " + text::Format(r.CgColumnTemp, u"0.0")
        << "         Cg Pressure: " + text::Str(r.CgPressure) + " mmHG";
    static const char* const times[kGases] = {
        "        C1 Peak Time: ", "        C2 Peak Time: ", "        C3 Peak Time: ",
        "       IC4 Peak Time: ", "       NC4 Peak Time: ", "       IC5 Peak Time: ",
        "       NC5 Peak Time: "};
    for (int g = 0; g < kGases; ++g) out << times[g] + s.PeakTimeText[g + 1];
    const double gain = ws.settings.CgVisibleGain;
    out << "          Good Peaks: " + QString::number(s.GoodPeaks)
        << "        Visible Gain: " + text::Str(text::Int((gain - 1000) / 2000) + 1) + "%";
    // A gas of nothing would leave the indicators undefined.
    std::array<double, 5> c{};
    for (int g = 0; g < 5; ++g) c[g] = r.CgC[g] == 0 ? 0.000001 : r.CgC[g];
    const double c1 = c[0], c2 = c[1], c3 = c[2], ic4 = c[3], nc4 = c[4];
    const double heavy = c3 + ic4 + nc4;
    const double all = c1 + c2 + heavy;
    out << "Common Oil Indicator: " + text::Format(heavy / (c1 == 0 ? 0.0001 : c1), u"0.000")
        << "Baroid Oil Indicator: " +
               text::Format((c1 + c2) / (heavy == 0 ? 0.0001 : heavy), u"0.000")
        << " Shell Oil Indicator: " +
               text::Format((c2 + heavy) / (all == 0 ? 0.0001 : all) * 100, u"0.000")
        << "Pixler Oil Indicator: " + text::Format((ic4 + nc4) / (c3 == 0 ? 0.0001 : c3), u"0.000")
        << "HOBBS Hour Meter: " + text::Str(text::Val(ws.packet.Gombri_data_array[acq::HOBBS])) +
               " Hours";
    return out;
}

void Report(Workstation& ws, station::Canvas& cv) {
    const QStringList lines = ReportLines(ws);
    cv.FontName = QStringLiteral("Courier New");
    cv.FontBold = false;
    cv.ForeColor = 0;
    // The whole report on the picture: the font comes down until it fits.
    cv.FontSize = 8;
    while (cv.FontSize > 5 &&
           cv.TextHeight(QStringLiteral("0")) * lines.size() > cv.Height() - 2 * kMargin)
        cv.FontSize -= 0.5;
    cv.CurrentY = kMargin;
    for (const QString& line : lines) {
        cv.CurrentX = kReportLeft;
        cv.Print(line);
    }
}

void Frame(station::Canvas& cv, double zeroY) {
    const double right = kTraceLeft + kTraceWidth + kMargin;
    const double bottom = cv.Height() - kMargin;
    cv.DrawWidth = 1;
    cv.Line(kMargin, kMargin, right, kMargin, 0);
    cv.Line(right, kMargin, right, bottom, 0);
    cv.Line(right, bottom, kMargin, bottom, 0);
    cv.Line(kMargin, bottom, kMargin, kMargin, 0);
    cv.Line(kTraceLeft, zeroY, kTraceLeft + kTraceWidth, zeroY, kBaseLine);
}

void Draw(Workstation& ws, station::Canvas& cv, int& step) {
    ChroState& s = ws.chro;
    const CgRun& r = s.run;
    step = 1;
    PeakTimes(ws);
    step = 2;
    cv.BackColor = 0xFFFFFF;
    cv.Cls();
    cv.FontName = QStringLiteral("Arial");
    cv.FontSize = 8;
    cv.FontBold = true;
    Geometry g;
    g.zeroY = s.CgZeroY;
    g.gain = ws.settings.CgVisibleGain;
    g.base = r.CgBase;
    g.bottom = cv.Height() - 2 * kMargin - 250;
    Frame(cv, s.CgZeroY);
    if (r.CgCount > 0) {
        g.xStep = kTraceWidth / r.CgCount;
        step = 3;
        Trace(ws, cv, g);
        step = 4;
        PeakLabels(ws, cv, g);
    }
    step = 5;
    Report(ws, cv);
    station::CanvasControls controls;
    controls.divider = &s.ln_V;
    cv.Present(controls);
}

} // namespace

void draw_chromatograph(Workstation& ws) {
    ChroState& s = ws.chro;
    if (s.Gcg_drawing) {
        s.Gcg_drawing = false;
        station::disply_text_alarms(ws, "Function is busy");
        return;
    }
    if (!s.pb_chro) return;
    s.Gcg_drawing = true;
    int step = 0;
    try {
        Draw(ws, *s.pb_chro, step);
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("Draw CG Err: ", e, step));
    }
    s.Gcg_drawing = false;
}

void print_chromatograph(Workstation& ws) {
    ChroState& s = ws.chro;
    // The page gets a picture of its own at a printer's density, without
    // the pointer line.
    const double w = s.pb_chro ? s.pb_chro->Width() : kPictureWidth;
    const double h = s.pb_chro ? s.pb_chro->Height() : kPictureHeight;
    constexpr double kDotsPerInch = 200;
    auto page = std::make_shared<station::ImageCanvas>(
        static_cast<int>(w / 1440 * kDotsPerInch), static_cast<int>(h / 1440 * kDotsPerInch), w);
    std::shared_ptr<station::Canvas> screen = s.pb_chro;
    s.pb_chro = page;
    draw_chromatograph(ws);
    s.pb_chro = screen;
    station::PrintPictureBox(ws, page->image());
}

void cmd_print_chro_Click(Workstation& ws) {
    print_chromatograph(ws);
}

} // namespace chromatograph
