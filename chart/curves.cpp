#include "chart/curves.h"

#include "workstation/workstation.h"

#include <cmath>

namespace chart {

namespace {

#define BOX(name) [](const Workstation& ws) { return ws.fm_setup.name.checked(); }
#define COLUMN(name) [](const HourBlock& b) -> const std::vector<double>* { return &b.name; }
#define NO_COLUMN [](const HourBlock&) -> const std::vector<double>* { return nullptr; }
#define KEPT(name) [](Workstation& ws) -> config::ChartScale& { return ws.settings.name; }
#define FIXED(name) [](Workstation& ws) -> config::ChartScale& { return ws.chart.scales.name; }
#define CUSTOM(n)                                                                                  \
    [](const Workstation& ws) { return ws.fm_setup.ck_Show_Custom_Wits[n].checked(); },            \
        [](const HourBlock& b) -> const std::vector<double>* { return &b.hour_WITS_custom[n]; },   \
        [](Workstation& ws) -> config::ChartScale& { return ws.chart.scales.CustomWits[n]; }

using namespace colour;

const Curve kCurves[] = {
    {CurveId::RawCg, BOX(ch_show_chromatograph), NO_COLUMN, KEPT(GasScale), nullptr, Blue, Blue,
     "00", false, false},
    {CurveId::H2S, BOX(ch_show_h2s), COLUMN(hour_H2S), FIXED(H2S), "H2S", Orange, Orange, "00",
     false, false},
    {CurveId::OilInd, [](const Workstation& ws) { return ws.fm_setup.op1_oil_ind.value() != 0; },
     COLUMN(hour_OIL_IND), KEPT(OilIndScale), "OilInd", Magenta, Magenta, "00", false, false},
    {CurveId::CValues, BOX(ck_c_values), NO_COLUMN, KEPT(CValueScale), "C Val", Black, Black, "00",
     false, false},
    {CurveId::ExtAmps, BOX(ck_ext_amps), COLUMN(hour_EXT_AMPS), FIXED(ExtAmps), "EX A", DarkGreen,
     DarkGreen, "00", false, false},
    {CurveId::CgTemp, BOX(ck_cg_temp), COLUMN(hour_CG_TEMP), FIXED(CgTemp), "CG T", Orange, Black,
     "00", false, false},
    {CurveId::CgPrs, BOX(ck_cg_prs), COLUMN(hour_CG_PRS), FIXED(CgPrs), "CG P", Blue, Blue, "00",
     false, false},
    {CurveId::DcVolts, BOX(ck_dc_volts), COLUMN(hour_DC_VOLTS), FIXED(DcVolts), "DC V", Red, Red,
     "00", false, false},
    {CurveId::AcVolts, BOX(ck_ac_volts), COLUMN(hour_AC_VOLTS), FIXED(AcVolts), "AC V", Blue, Blue,
     "00", false, false},
    {CurveId::Temp, BOX(ck_temp), COLUMN(hour_TEMP), FIXED(Temp), "Temp", Black, Black, "00", false,
     false},
    {CurveId::HrmTemp, BOX(ck_hrm_temp), COLUMN(hour_HRM_TEMP), FIXED(HrmTemp), "HRM T", Black,
     Black, "00", false, false},
    {CurveId::BitDepth, BOX(ch_show_bd), COLUMN(hour_BIT_DEPTH), FIXED(BitDepth), "Bit Dep", Black,
     Black, "0", true, false},
    {CurveId::O2, BOX(ch_o2), COLUMN(hour_O2), FIXED(O2), "O2", Blue, Blue, "0.0", false, false},
    {CurveId::Wits, BOX(ck_wits), COLUMN(hour_WITS), KEPT(WitsScale), "WITS", Black, Black, "00",
     true, true},
    {CurveId::Custom1, CUSTOM(0), nullptr, Blue, Blue, "00", true, true},
    {CurveId::Custom2, CUSTOM(1), nullptr, Red, Red, "00", true, true},
    {CurveId::Custom3, CUSTOM(2), nullptr, Green, Green, "00", true, true},
    {CurveId::Custom4, CUSTOM(3), nullptr, Orange, Orange, "00", true, true},
    {CurveId::CO2, BOX(ch_co2), COLUMN(hour_CO2), FIXED(CO2), "CO2", Magenta, Magenta, "0.0", false,
     false},
    {CurveId::ExhPrs, BOX(ck_exh_prs), COLUMN(hour_EXH_PRS), FIXED(ExhPrs), "Exha", Orange, Orange,
     "00", false, false},
    {CurveId::Vac, BOX(ck_vac_flow), COLUMN(hour_VAC), FIXED(Vac), "VAC", Blue, Blue, "00", false,
     false},
    {CurveId::Lph, BOX(ck_vac_flow), COLUMN(hour_LPH), FIXED(Lph), "LPH", Green, Green, "00.0",
     false, false},
    {CurveId::GasUnits, BOX(ch_show_gu), COLUMN(hour_GAS_UNITS), KEPT(GasScale), "GU", Red, Red,
     "0", true, false},
};

#undef BOX
#undef COLUMN
#undef NO_COLUMN
#undef KEPT
#undef FIXED
#undef CUSTOM

} // namespace

std::span<const Curve> CurvesInDrawOrder() {
    return kCurves;
}

std::vector<const Curve*> CurvesInKeyOrder() {
    static const CurveId order[] = {
        CurveId::GasUnits, CurveId::BitDepth, CurveId::ExhPrs,  CurveId::OilInd,  CurveId::H2S,
        CurveId::CValues,  CurveId::Temp,     CurveId::ExtAmps, CurveId::CgTemp,  CurveId::CgPrs,
        CurveId::DcVolts,  CurveId::AcVolts,  CurveId::HrmTemp, CurveId::O2,      CurveId::CO2,
        CurveId::Vac,      CurveId::Lph,      CurveId::Wits,    CurveId::Custom1, CurveId::Custom2,
        CurveId::Custom3,  CurveId::Custom4};
    std::vector<const Curve*> out;
    for (CurveId id : order) out.push_back(&kCurves[static_cast<int>(id)]);
    return out;
}

QString LegendOf(const Workstation& ws, const Curve& c) {
    if (c.legend) return QString::fromLatin1(c.legend);
    const int n = static_cast<int>(c.id) - static_cast<int>(CurveId::Custom1);
    if (n >= 0 && n < 4) return ws.fm_setup.txt_custom_wits_name[n].text();
    return {};
}

void FitScale(config::ChartScale& s, double span) {
    double divisor = std::abs(s.ScaleMin) + s.ScaleMax;
    if (divisor == 0) divisor = 1;
    s.PixelsPerUnit = span / divisor;
}

} // namespace chart
