// Teaching the instrument where a peak falls: the operator chooses a peak
// with its button, points at the top of that peak on the trace, reads the
// seconds and double clicks. The choice lapses by itself after half a
// minute of Timer2, its button flashing in the gas's colour meanwhile.

#include "chromatograph/chro_timers.h"
#include "chromatograph/chromatograph.h"
#include "chromatograph/peaks.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace chromatograph {

namespace {

constexpr double kTraceLeft = 300;
constexpr double kTraceRight = 4400;
// Ticks of Timer2 a chosen peak waits for its double click.
constexpr int32_t kChoiceTicks = 300;

void Present(Workstation& ws) {
    if (!ws.chro.pb_chro) return;
    station::CanvasControls controls;
    controls.divider = &ws.chro.ln_V;
    ws.chro.pb_chro->Present(controls);
}

void EndChoice(Workstation& ws) {
    ChroState& s = ws.chro;
    s.PeakToSet = 0;
    s.PeakSetCountdown = 0;
    ws.fm_chro.lbl_cg_time.setVisible(false);
    ws.fm_chro.lbl_dbl_clk.setVisible(false);
    for (forms::Control& b : ws.fm_chro.cmd_set) b.setBackColor(forms::color::Button);
    if (s.ln_V.Visible) {
        s.ln_V.Visible = false;
        ws.fm_chro.ln_V.setVisible(false);
        Present(ws);
    }
}

} // namespace

void fm_chro_Load(Workstation& ws) {
    ChroState& s = ws.chro;
    const double height = s.pb_chro ? s.pb_chro->Height() : kPictureHeight;
    s.CgZeroY = text::RoundEven(height * 0.85);
    s.ln_V = station::LineControl{};
    s.ln_V.BorderColor = 255;
    ws.fm_chro.lbl_dbl_clk.setVisible(false);
    ws.fm_chro.lbl_cg_time.setVisible(false);
    ws.fm_chro.ln_V.setVisible(false);
    ws.fm_chro.pb_chro.setVisible(true);
    ws.fm_chro.cmd_timing_lines.setCaption(s.TimingLinesOn ? "Timing Lines Are On"
                                                           : "Timing Lines Are Off");
    // The size slider shows the gain the settings hold, without a redraw.
    s.CgGainGuard = true;
    ws.fm_chro.vs_cg_vis_size.setValue(
        std::clamp(201 - static_cast<int>(std::lround(ws.settings.CgVisibleGain / 1000)), 1, 200));
    s.CgGainGuard = false;
}

void cmd_set_Click(Workstation& ws, int peak) {
    ChroState& s = ws.chro;
    if (peak < 0 || peak >= kGases) return;
    // A run without its whole trace has nothing to time.
    if (s.run.CgEndOfData || s.run.CgIncomplete) return;
    if (s.PeakToSet == 0) {
        s.PeakSetCountdown = kChoiceTicks;
        s.PeakToSet = static_cast<int16_t>(peak + 1);
        ws.fm_chro.lbl_dbl_clk.setVisible(true);
    } else {
        // A second press ends the choice at the next tick.
        s.PeakSetCountdown = 1;
    }
}

void fm_chro_Timer2_Timer(Workstation& ws) {
    ChroState& s = ws.chro;
    if (s.PeakSetCountdown <= 0) return;
    const int32_t was = s.PeakSetCountdown;
    s.PeakSetCountdown -= 1;
    if (was == 1) {
        EndChoice(ws);
        return;
    }
    s.FlashOn = !s.FlashOn;
    ws.fm_chro.lbl_dbl_clk.setForeColor(s.FlashOn ? forms::color::Red : forms::color::Black);
    if (s.PeakToSet >= 1 && s.PeakToSet <= kGases)
        ws.fm_chro.cmd_set[s.PeakToSet - 1].setBackColor(s.FlashOn ? PeakColor(ws, s.PeakToSet)
                                                                   : forms::color::Button);
}

void cmd_timing_lines_Click(Workstation& ws) {
    ChroState& s = ws.chro;
    s.TimingLinesOn = !s.TimingLinesOn;
    ws.fm_chro.cmd_timing_lines.setCaption(s.TimingLinesOn ? "Timing Lines Are On"
                                                           : "Timing Lines Are Off");
    draw_chromatograph(ws);
}

void pb_chro_MouseMove(Workstation& ws, double x, double y, bool leftButton) {
    ChroState& s = ws.chro;
    if (s.PeakToSet == 0) {
        if (!leftButton) return;
        // Dragging with no peak chosen moves the base line.
        s.CgZeroY = y;
        s.CgRedrawPending = true;
        return;
    }
    if (x < kTraceLeft || x > kTraceRight) return;
    const CgRun& r = s.run;
    const int count = std::max(r.CgCount, 0);
    const int index =
        std::min(count, static_cast<int>((x - kTraceLeft) / (kTraceRight - kTraceLeft) * count));
    s.PointerSeconds = 0;
    if (r.CgTimes[0].isValid() && r.CgTimes[index].isValid())
        s.PointerSeconds = static_cast<int32_t>(r.CgTimes[0].secsTo(r.CgTimes[index]));
    ws.fm_chro.lbl_cg_time.setCaption(QString::number(s.PointerSeconds));
    ws.fm_chro.lbl_cg_time.setVisible(true);
    const double height = s.pb_chro ? s.pb_chro->Height() : kPictureHeight;
    s.ln_V.X1 = s.ln_V.X2 = x;
    s.ln_V.Y1 = 150;
    s.ln_V.Y2 = height - 150;
    s.ln_V.Visible = true;
    ws.fm_chro.ln_V.setVisible(true);
    Present(ws);
}

void pb_chro_DblClick(Workstation& ws) {
    ChroState& s = ws.chro;
    if (s.PeakToSet == 0) return;
    const int peak = s.PeakToSet;
    // The instrument counts from its own start of the run: the time it is
    // taught is six seconds short, and C1, C2 and C3 take their own
    // allowance back.
    int32_t seconds = s.PointerSeconds - 6;
    if (peak == 1 || peak == 2) seconds += 6;
    if (peak == 3) seconds += 12;

    auto& help = ws.fm_help;
    help.form.setCaption("Set Chromatograph Peak Timing");
    help.form.setVisible(true);
    help.pgbar.setRange(1, 100);
    help.pgbar.setValue(1);

    const QString name = PeakName(peak);
    station::disply_text_alarms(ws, name + " Time Has Been Set To " + QString::number(seconds) +
                                        " Seconds");
    const QString command = "WRITEETIME " + name + " " + QString::number(seconds);
    // The serial instrument wants a moment between lines.
    const bool serial = ws.MSComm1.PortOpen();
    if (serial) {
        ws.MSComm1.Output("\r");
        station::DelaySeconds(ws, 1);
    }
    if (ws.services.send_to_instrument) ws.services.send_to_instrument(ws, command + "\r");
    station::write_function_log(ws, "COMMAND OUTPUT TO KW: " + command);
    help.pgbar.setValue(100);
    if (serial) station::DelaySeconds(ws, 1);

    help.form.setVisible(false);
    EndChoice(ws);
}

} // namespace chromatograph
