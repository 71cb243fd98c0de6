#include "products/options.h"

#include "text/numbers.h"
#include "workstation/workstation.h"

namespace products {

using text::Format;
using text::Val;

FileOptions ReadFileOptions(const Workstation& ws) {
    const auto& s = ws.fm_setup;
    FileOptions o;
    o.metric = s.ck_metric.checked();
    o.ropIsFtHr = s.ck_ROP_is_FtHr.checked();
    o.guAsPpm = s.ck_GU_as_PPM.checked();
    o.percentGu = Val(s.txt_Percent_GU.text());
    // The buttons are read in this order; the last one on wins, as when
    // several were left on by an old settings file.
    if (s.op_cg_in_ppm.checked()) o.cUnit = CUnit::Ppm;
    if (s.op_cg_in_gu.checked()) o.cUnit = CUnit::GasUnits;
    if (s.op_cg_percent.checked()) o.cUnit = CUnit::Percent;
    if (s.op_cg_percent_sam.checked()) o.cUnit = CUnit::PercentOfSample;
    o.cvalGain = Val(s.txt_cval_gain.text());
    for (int i = 0; i < 4; ++i) o.customNames[i] = s.txt_custom_wits_name[i].text();
    o.addTimeDate = s.ck_add_timedate.checked();
    o.halfFoot = s.ck_gen_half_ft_las.checked();
    o.lasType1 = s.ck_gen_las_type1.checked();
    o.las48 = s.ck_gen_las48_file.checked();
    o.xls48 = s.ck_gen_xls48_file.checked();
    o.xlsHeader = s.ck_gen_xls_hdr.checked();
    o.lasLagged = s.chk_depth_is_lag_depth_las.checked();
    o.xlsLagged = s.chk_depth_is_lag_depth_xls.checked();
    o.depthFromDb = s.ck_use_depth_from_db.checked();
    o.minDepth = s.txt_chart_mindepth.text();
    o.maxDepth = s.txt_chart_maxdepth.text();
    o.apn = s.txt_APN_Number.text();
    o.separator = ws.products.Gdata_separator;
    o.gasGains = {Val(s.txt_c1_gain.text()),
                  Val(s.txt_c2_gain.text()),
                  Val(s.txt_c3_gain.text()),
                  Val(s.txt_ic4_gain.text()),
                  Val(s.txt_nc4_gain.text()),
                  1,
                  1};
    o.oilIndicator = s.op1_oil_ind.value();
    return o;
}

double GasUnitsOut(const FileOptions& o, double tg) {
    return o.guAsPpm ? tg * 100 : o.percentGu / 100 * tg;
}

std::array<QString, 9> CValues(const FileOptions& o, const std::array<double, 7>& x, double tg,
                               double fractionOfNothing) {
    const double g = o.cvalGain;
    std::array<QString, 9> out;
    enum { C1, C2, C3, IC4, NC4, IC5, NC5 };
    switch (o.cUnit) {
    case CUnit::Ppm:
        for (int i = 0; i < 7; ++i) out[i] = Format(x[i] * 100 * g, u"0");
        // Only the iso gas of the pair takes the gain here.
        out[7] = Format(x[IC4] * 100 * g + x[NC4] * 100, u"0");
        out[8] = Format(x[IC5] * 100 * g + x[NC5] * 100, u"0");
        break;
    case CUnit::GasUnits:
        for (int i = 0; i < 7; ++i) out[i] = Format(x[i] * g, u"0.000");
        out[7] = Format(x[IC4] * g + x[NC4], u"0.0");
        out[8] = Format(x[IC5] * g + x[NC5], u"0.0");
        break;
    case CUnit::Percent:
    case CUnit::PercentOfSample: {
        double total = 0;
        for (double v : x) total += v;
        std::array<double, 7> p{};
        if (total <= 0)
            p[C1] = fractionOfNothing;
        else
            for (int i = 0; i < 7; ++i) p[i] = x[i] / total;
        const double scale = o.cUnit == CUnit::Percent ? 100 : tg / 100;
        for (int i = 0; i < 7; ++i) out[i] = Format(p[i] * scale * g, u"0.000");
        out[7] = Format((p[IC4] * scale) * g + (p[NC4] * scale) * g, u"0.000");
        out[8] = Format((p[IC5] * scale) * g + (p[NC5] * scale) * g, u"0.000");
        break;
    }
    }
    return out;
}

double OilIndicator(int option, const std::array<double, 7>& g) {
    auto guard = [](double d, double tiny) { return d == 0 ? tiny : d; };
    const double c1 = g[0], c2 = g[1], c3 = g[2], c4 = g[3] + g[4];
    switch (option) {
    case 1:
        return (c3 + c4) / guard(c1, 0.0001);
    case 2:
        return (c1 + c2) / guard(c3 + c4, 0.0001);
    case 3:
        return 100 * (c2 + c3 + c4) / guard(c1 + c2 + c3 + c4, 0.000001);
    case 4:
        return c4 / guard(c3, 0.0001);
    default:
        return 0;
    }
}

} // namespace products
