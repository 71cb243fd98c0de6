#include "config/setup_handlers.h"

#include "chart/chart.h"
#include "config/gas_rows.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

namespace config {

using forms::Control;
using forms::FmSetup;

namespace {

bool StartingUp(const Workstation& ws) {
    return ws.loop.Gstarting_up;
}

const char* const kZoneNote = "Zone 1 is the default lag settings.\r\n"
                              "Failure to set any lag settings, or if any lag settings are "
                              "invalid, Zone 1 lag settings will be used by Default.  \r\n"
                              "Zones 2 to 6 take over once the depth passes their start "
                              "depth; the last zone that fits wins.\r\n"
                              "Zones that are invalid or in error are highlighted in red.";

// The formula each oil indicator plots, by its element in op1_oil_ind.
const char* const kOilFormulas[5] = {
    "",
    "(C3 + IC4 + NC4) / C1",
    "(C1 + C2) / (C3 + IC4 + NC4)",
    "100 x (C2 + C3 + IC4 + NC4) / (C1 + C2 + C3 + IC4 + NC4)",
    "(IC4 + NC4) / C3",
};

// Scale entry: the box, the scale it sets, the text put back when the box
// holds no "to", and the limits. The uneven ones are the program's own.
struct ScaleRule {
    Control FmSetup::*box;
    ChartScale Settings::*scale;
    const char* fallback;
    void (*limits)(Settings&);
};

void GasLimits(Settings& s) {
    auto& g = s.GasScale;
    if (g.ScaleMin < 0) g.ScaleMin = 0;
    if (g.ScaleMax < 1) g.ScaleMax = 1;
    if (g.ScaleMax > 10000) g.ScaleMax = 10000;
    s.CValueScale.ScaleMin = g.ScaleMin;
    s.CValueScale.ScaleMax = g.ScaleMax;
}
void RopLimits(Settings& s) {
    auto& r = s.RopScale;
    if (r.ScaleMin < 0.1) r.ScaleMin = 0.1;
    if (r.ScaleMax > 10000) r.ScaleMax = 600;
}
void GammaLimits(Settings& s) {
    auto& g = s.GammaScale;
    if (g.ScaleMin < 0.1) g.ScaleMin = 0.1;
    if (g.ScaleMax > 10000) g.ScaleMax = 10000;
}
void NoLimits(Settings&) {}
void WitsLimits(Settings& s) {
    auto& w = s.WitsScale;
    w.ScaleMin = text::CLng(w.ScaleMin);
    w.ScaleMax = text::CLng(w.ScaleMax);
    if (w.ScaleMin < 0) w.ScaleMin = 0;
}

const ScaleRule kGasRule{&FmSetup::txt_gas_units, &Settings::GasScale, "0 to 300", &GasLimits};
const ScaleRule kRopRule{&FmSetup::txt_rop_scale, &Settings::RopScale, "0 to 10", &RopLimits};
const ScaleRule kGammaRule{&FmSetup::txt_lag_gamma_scale, &Settings::GammaScale, "0 to 500",
                           &GammaLimits};
const ScaleRule kOilRule{&FmSetup::txt_oil_ind_scale, &Settings::OilIndScale, "0 to 500",
                         &NoLimits};
const ScaleRule kWitsRule{&FmSetup::txt_wits_scale, &Settings::WitsScale, "0 to 500", &WitsLimits};

void CommitScale(Workstation& ws, const ScaleRule& rule) {
    if (StartingUp(ws)) return;
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    Control& box = ws.fm_setup.*rule.box;
    const QStringList parts = box.text().split(QStringLiteral("to"));
    if (parts.size() < 2) {
        box.setText(QString::fromLatin1(rule.fallback));
        ws.dialogs().MsgBox("You must use the word \"to\" to seperate the two numbers",
                            platform::Buttons::Ok, "SCALE SET ERROR", platform::Icon::Exclamation);
        return;
    }
    ChartScale& scale = ws.settings.*rule.scale;
    scale.ScaleMin = text::Val(parts[0]);
    scale.ScaleMax = text::Val(parts[1]);
    rule.limits(ws.settings);
    // The chart takes the new range at its next draw.
}

} // namespace

void ShowCurveColors(Workstation& ws) {
    for (const GasRow& g : GasRows()) {
        const long c = ws.settings.*g.curveColor;
        (ws.fm_setup.*g.color).setBackColor(c);
        (ws.fm_setup.*g.box).setForeColor(c);
    }
}

void fm_setup_Load(Workstation& ws) {
    auto& p = ws.fm_setup;
    p.fr_sample.setCaption("Sample Gas Sensor Health: Good");
    p.pg_sample_health.setRange(0, 100);
    p.pg_sample_health.setValue(100);
    p.pg_sample_health.setForeColor(forms::color::Green);

    const QDateTime now = ws.Now();
    p.txt_al_time.setText(text::FormatDate(now, u"HH:MM:SS"));
    p.txt_al_date.setText(text::FormatDate(now, u"DD-MMM-YYYY"));

    // The load words only the drill-off box; the viewer keeps its own short
    // feet captions until the box is changed, unless the job runs metric.
    ApplyMetricWords(ws, p.ck_metric.checked());
    ShowCurveColors(ws);
    p.txt_Zone1_text.setText(kZoneNote);

    p.cmb_Report_Time.clearItems();
    for (int h = 0; h < 24; ++h)
        p.cmb_Report_Time.addItem(QStringLiteral("%1:00").arg(h, 2, 10, QLatin1Char('0')));
}

bool fm_setup_QueryUnload(Workstation& ws) {
    ws.fm_setup.form.setVisible(false);
    return true;
}

void lbl_color_Click(Workstation& ws, int gas) {
    if (gas < 0 || gas >= static_cast<int>(GasRows().size())) return;
    const GasRow& g = GasRows()[static_cast<std::size_t>(gas)];
    long& curve = ws.settings.*g.curveColor;
    const std::optional<long> picked = ws.dialogs().PickColor("SELECT New Color", curve);
    if (!picked) return;
    curve = *picked;
    (ws.fm_setup.*g.color).setBackColor(curve);
    (ws.fm_setup.*g.box).setForeColor(curve);
}

void ApplyMetricWords(Workstation& ws, bool viewerFrames) {
    static const struct {
        const char* label;
        const char* metric;
        const char* feet;
    } words[] = {
        {"lbl_DrillDepth", "Drill Depth In Meters", "Drill Depth In Feet"},
        {"lbl_DrilRateFH", "ROP Met/Hr", "ROP Ft/Hr"},
        {"lbl_DrilRateMF", "ROP Minutes Per Meter", "ROP Minutes Per Foot"},
    };
    const bool metric = ws.fm_setup.ck_metric.checked();
    if (viewerFrames)
        for (const auto& w : words)
            ws.more_data.frameOf(w.label).setCaption(metric ? w.metric : w.feet);
    const QString unit = metric ? QStringLiteral("Number Of Meters With Less Than ROP Value")
                                : QStringLiteral("Number Of Feet With Less Than ROP Value");
    const QString title = QStringLiteral("Drill Off / Drilling Break");
    ws.fm_setup.ck_drill_off.setCaption(title + "\r\n" + unit);
    ws.fm_setup.ck_drill_off.setToolTip(unit + "\r\n" + title);
}

void ck_metric_Click(Workstation& ws) {
    if (StartingUp(ws)) return;
    ApplyMetricWords(ws, true);
}

void ApplyDelimiter(Workstation& ws, int index) {
    static const char* const fixed[3] = {"\t", ",", " "};
    if (index < 0 || index > 3) return;
    ws.fm_setup.op_delim.setValue(index);
    ws.products.Gdata_separator =
        index < 3 ? QString::fromLatin1(fixed[index]) : ws.fm_setup.txt_delim.text();
}

void op_delim_Click(Workstation& ws, int index) {
    if (StartingUp(ws)) return;
    ApplyDelimiter(ws, index);
}

void txt_delim_Change(Workstation& ws) {
    if (StartingUp(ws)) return;
    ApplyDelimiter(ws, 3);
}

void ApplyWitsItem(Workstation& ws, int index) {
    if (index < 0 || index >= static_cast<int>(chart::WitsColumnNames().size())) return;
    ws.fm_setup.op_wits_item.setValue(index);
    ws.chart.Gwits_column = index;
}

void op_wits_item_Click(Workstation& ws, int index) {
    if (StartingUp(ws)) return;
    ApplyWitsItem(ws, index);
}

void ApplyOilIndicator(Workstation& ws, int index) {
    if (index < 0 || index > 4) return;
    ws.fm_setup.op1_oil_ind.setValue(index);
    ws.fm_setup.lbl_formula.setCaption(kOilFormulas[index]);
}

void op1_oil_ind_Click(Workstation& ws, int index) {
    if (StartingUp(ws)) return;
    ApplyOilIndicator(ws, index);
}

void txt_cg_gain_Commit(Workstation& ws) {
    if (StartingUp(ws)) return;
    Control& box = ws.fm_setup.txt_cg_gain;
    double gain = text::Val(box.text());
    if (gain > 200000) gain = 200000;
    if (gain <= 0) gain = 100;
    ws.settings.CgVisibleGain = gain;
    if (gain != text::Val(box.text())) box.setText(text::Str(gain));
}

void txt_gas_gain_Commit(Workstation& ws, int gas) {
    if (StartingUp(ws)) return;
    if (gas < 0 || gas >= static_cast<int>(GasRows().size())) return;
    const GasRow& g = GasRows()[static_cast<std::size_t>(gas)];
    ws.settings.*g.gainValue = text::Val((ws.fm_setup.*g.gain).text());
}

void txt_cval_gain_Commit(Workstation& ws) {
    if (StartingUp(ws)) return;
    Control& box = ws.fm_setup.txt_cval_gain;
    if (text::Val(box.text()) <= 0.0001) box.setText("1.00");
}

void txt_surface_lag_Change(Workstation& ws) {
    if (StartingUp(ws)) return;
    Control& box = ws.fm_setup.txt_surface_lag;
    const double v = text::Val(box.text());
    // The variable keeps what was typed; the box shows the floor, which the
    // next event then reads.
    ws.depth.Gline_lag_seconds = v;
    if (v < 1) box.setText("1");
}

void txt_gas_units_Change(Workstation& ws) {
    if (StartingUp(ws)) return;
    CommitScale(ws, kGasRule);
    // Run once at the end of start-up, this is what lets the first chart be
    // drawn: the busy flag stands from the start until here.
    if (!ws.chart.Gchart_drawing) ws.chart.Gchart_busy = false;
}

void txt_rop_scale_Commit(Workstation& ws) {
    CommitScale(ws, kRopRule);
}
void txt_lag_gamma_scale_Commit(Workstation& ws) {
    CommitScale(ws, kGammaRule);
}
void txt_oil_ind_scale_Commit(Workstation& ws) {
    CommitScale(ws, kOilRule);
}
void txt_wits_scale_Commit(Workstation& ws) {
    CommitScale(ws, kWitsRule);
}

void ApplyRopInchesPer100Ft(Workstation& ws) {
    Control& box = ws.fm_setup.txt_ROP_in_per_100ft;
    double v = text::Val(box.text());
    if (v < 0.5 || v > 10) {
        v = 1;
        box.setText("1.0");
    }
    ws.settings.RopInchesPer100Ft = v;
    ws.settings.RopTwipsPerFoot = 14.4 * v;
}

void txt_ROP_in_per_100ft_Commit(Workstation& ws) {
    if (StartingUp(ws)) return;
    ApplyRopInchesPer100Ft(ws);
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    if (!ws.chart.Gchart_busy) chart::make_chart(ws);
}

} // namespace config
