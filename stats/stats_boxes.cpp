// The two text boxes of the Statistics tab: the run's status lines and the
// finished report.
#include "stats/statistics.h"
#include "text/datetime.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

namespace stats {

namespace {
// Each box is cut back when it grows past its mark.
constexpr int kStatusHigh = 8000;
constexpr int kStatusLow = 7000;
constexpr int kOutputMost = 64000;
} // namespace

void Stats_Status(Workstation& ws, const QString& text) {
    auto& box = ws.fm_setup.txt_stats;
    QString all = box.text() + "\r\n" + text::ShortTime(ws.Now().time()) + " -- " + text;
    if (all.size() > kStatusHigh) all = all.right(kStatusLow);
    box.setText(all);
    // The information box tells the same story while the run goes on.
    if (ws.stats.running) station::help_msg(ws, text);
}

void Stats_Output_Line(Workstation& ws, const QString& text) {
    Stats_Output_Text(ws, text + "\r\n");
}

void Stats_Output_Text(Workstation& ws, const QString& lines) {
    // Cutting once after all the lines leaves what cutting after each would.
    auto& box = ws.fm_setup.txt_stats_output;
    QString all = box.text() + lines;
    if (all.size() > kOutputMost) all = all.right(kOutputMost);
    box.setText(all);
}

} // namespace stats
