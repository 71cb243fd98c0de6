// One hour block: the records from HourPointer back to the last change of
// clock hour, with every curve's values cleaned up for the renderer. Only
// the columns of ticked curves are fetched; the recordset then reads ahead
// in blocks of just those columns, backwards as the cursor goes.
#include "chart/chart.h"
#include "chart/day_number.h"
#include "db/job_error.h"
#include "store/lifecycle.h"
#include "text/numbers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <algorithm>

namespace chart {

namespace {

// A block needs this many records of its hour before it is shown by itself.
constexpr int kFewestRows = 50;
constexpr double kDeepest = depth::kDeepestFoot;

// The check boxes and options the read looks at, taken once a read.
struct Wanted {
    bool rawDepth, bitDepth, h2s, extAmps, dcVolts, acVolts, cgPrs, cgTemp, temp, hrmTemp, vac,
        exhPrs, pumps, o2, co2, cgv, wits, inserted, lineMark;
    std::array<bool, 4> custom;
    int oil;
};

Wanted Read(const forms::FmSetup& s) {
    Wanted w{};
    w.rawDepth = s.ch_raw_depth.checked();
    w.bitDepth = s.ch_show_bd.checked() || s.ck_off_bottom.checked();
    w.h2s = s.ch_show_h2s.checked();
    w.extAmps = s.ck_ext_amps.checked();
    w.dcVolts = s.ck_dc_volts.checked();
    w.acVolts = s.ck_ac_volts.checked();
    w.cgPrs = s.ck_cg_prs.checked();
    w.cgTemp = s.ck_cg_temp.checked();
    w.temp = s.ck_temp.checked();
    w.hrmTemp = s.ck_hrm_temp.checked();
    w.vac = s.ck_vac_flow.checked();
    w.exhPrs = s.ck_exh_prs.checked();
    w.pumps = s.ck_pumps_on.checked();
    w.o2 = s.ch_o2.checked();
    w.co2 = s.ch_co2.checked();
    w.cgv = s.ch_show_chromatograph.checked();
    w.wits = s.ck_wits.checked();
    w.inserted = s.ck_show_ins_pac.checked();
    w.lineMark = s.ck_line_lag.checked();
    for (int k = 0; k < 4; ++k) w.custom[k] = s.ck_Show_Custom_Wits[k].checked();
    w.oil = s.op1_oil_ind.value();
    return w;
}

// Column numbers of the set, looked up once a read.
struct Cols {
    int errTxt, dt, id, timeTxt, dateTxt, depth, depthRaw, bitDepth, gas, h2s, extAmps, volts,
        chromVac, temp, sampleVac, lph, spm, o2, co2, cgTest, cgv, gasText, serial, wits;
    std::array<int, 7> c;
    std::array<int, 4> custom;
    QString witsName;
};

Cols Find(const db::Recordset& rs, const QString& witsColumn) {
    auto f = [&](const char* n) { return rs.FieldIndex(QString::fromLatin1(n)); };
    Cols c{};
    c.errTxt = f("ERR_TXT");
    c.dt = f("DT");
    c.id = f("ID");
    c.timeTxt = f("TIME_TXT");
    c.dateTxt = f("DATE_TXT");
    c.depth = f("DEPTH");
    c.depthRaw = f("DEPTH_RAW");
    c.bitDepth = f("BIT_DEPTH");
    c.gas = f("GAS_UNITS");
    c.h2s = f("H2S");
    c.extAmps = f("EXT_AMPS");
    c.volts = f("VOLTS");
    c.chromVac = f("CHROM_VAC");
    c.temp = f("TEMP");
    c.sampleVac = f("SAMPLEVAC");
    c.lph = f("LPH");
    c.spm = f("TOTAL_SPM");
    c.o2 = f("O2");
    c.co2 = f("CO2");
    c.cgTest = f("CGTESTNUM");
    c.cgv = f("CGV");
    c.gasText = f("GAS_TEXT");
    c.serial = f("SERIAL_NUM");
    c.wits = rs.FieldIndex(witsColumn);
    c.witsName = witsColumn;
    const char* gases[7] = {"C1", "C2", "C3", "IC4", "NC4", "IC5", "NC5"};
    for (int k = 0; k < 7; ++k) c.c[k] = f(gases[k]);
    const char* custom[4] = {"KW7001", "KW7003", "KW7005", "KW7007"};
    for (int k = 0; k < 4; ++k) c.custom[k] = f(custom[k]);
    return c;
}

// A missing column reads as the set's own "not found" failure.
db::Variant Field(const db::Recordset& rs, int col, const char* name) {
    return col < 0 ? rs.Fields(name) : rs.Fields(col);
}

// Two quantities share one column: below 8000 the first, from 8000 up the
// second with 10000 added. Each array keeps its own quantity on every row,
// the last one seen filling the rows of the other; rows 3 and 4 mend row 0,
// which has no earlier row to take from.
void FirstOfPair(std::vector<double>& a, int i, double v) {
    a[i] = v;
    if (i == 3 || i == 4) a[0] = a[i - 1];
    if (a[i] >= 8000 && i >= 1) a[i] = a[i - 1];
}

void SecondOfPair(std::vector<double>& a, int i, double v) {
    a[i] = v;
    if (v >= 8000) {
        a[i] = v - 10000;
        if (i == 3 || i == 4) a[0] = a[i - 1];
    } else if (i > 0) {
        a[i] = a[i - 1];
    }
}

void ReadGains(Workstation& ws) {
    const auto& s = ws.fm_setup;
    auto& c = ws.chart;
    c.CgVisibleGain = text::Val(s.txt_cg_gain.text());
    // No boxes of their own for the pentanes: they go with the butanes.
    c.Gains = {text::Val(s.txt_c1_gain.text()),  text::Val(s.txt_c2_gain.text()),
               text::Val(s.txt_c3_gain.text()),  text::Val(s.txt_ic4_gain.text()),
               text::Val(s.txt_nc4_gain.text()), text::Val(s.txt_ic4_gain.text()),
               text::Val(s.txt_nc4_gain.text())};
}

// The components in gas units, from the gained fractions of their sum.
void Components(ChartState& c, const db::Recordset& rs, const Cols& k, int i, double gasRead) {
    std::array<double, 7> v{};
    double sum = 0;
    for (int g = 0; g < 7; ++g) {
        const db::Variant f = rs.Fields(k.c[g]);
        // The pentanes came later: an older record has none.
        v[g] = (g >= 5 ? f.valueOr(0) : f.toDouble()) * c.Gains[g];
        sum += v[g];
    }
    for (int g = 0; g < 7; ++g) {
        const double fraction = sum > 0 ? v[g] / sum : (g == 0 ? 1 : 0);
        double stored = fraction * gasRead;
        if (!(stored > 0)) stored = 0.000001;
        c.block.hour_C[g][i] = stored;
    }
}

void OilIndicator(HourBlock& b, int i, int item) {
    auto& C = b.hour_C;
    const double c2 = C[1][i], ic4 = C[3][i], nc4 = C[4][i];
    switch (item) {
    case 1:
        if (C[0][i] == 0) C[0][i] = 0.0001;
        b.hour_OIL_IND[i] = (C[2][i] + ic4 + nc4) / C[0][i];
        break;
    case 2:
        if (C[2][i] + ic4 + nc4 == 0) C[2][i] = 0.0001;
        b.hour_OIL_IND[i] = (C[0][i] + c2) / (C[2][i] + ic4 + nc4);
        break;
    case 3: {
        double divisor = C[0][i] + c2 + C[2][i] + ic4 + nc4;
        if (divisor == 0) divisor = 0.0001;
        b.hour_OIL_IND[i] = 100 * (c2 + C[2][i] + ic4 + nc4) / divisor;
        break;
    }
    case 4:
        if (C[2][i] == 0) C[2][i] = 0.0001;
        b.hour_OIL_IND[i] = (ic4 + nc4) / C[2][i];
        break;
    default:
        break;
    }
}

void SetTitle(Workstation& ws) {
    auto& fm = ws.fm_Gas_Chart;
    fm.form.setCaption(fm.minimized
                           ? ws.chart.UnitSerial + " Ver " + station::Revision()
                           : " Ombri Instruments Gas Chart  Version: " + station::Revision());
}

} // namespace

void Read_hour_block_from_db(Workstation& ws) {
    auto& c = ws.chart;
    auto& b = c.block;
    db::Recordset& rs = ws.db.Grecords;
    int pt = 1;
    c.BlockCount = 0;
    ReadGains(ws);
    try {
        if (!rs.isOpen() || rs.RecordCount() == 0) {
            station::disply_text_alarms(ws, "The data base is empty");
            return;
        }
        pt = 2;
        const Wanted w = Read(ws.fm_setup);
        const Cols k = Find(rs, WitsColumnNames()[std::clamp(c.Gwits_column, 0, 4)]);
        // Positions count from 0 here: the newest record is one short of
        // the count.
        c.HourPointer = std::clamp(c.HourPointer, 1, std::max(1, rs.RecordCount() - 1));
        rs.SetAbsolutePosition(std::min(c.HourPointer, rs.RecordCount() - 1));
        pt = 3;
        QString tagHour = rs.Fields(k.timeTxt).toText().left(2);
        QString tagDate = rs.Fields(k.dateTxt).toText();
        double newest = DayNumber(rs.Fields(k.dt));
        c.UnitSerial = rs.Fields(k.serial).toText();

        while (!rs.Bof()) {
            const int i = c.BlockCount;
            pt = 10;
            if (w.inserted || w.lineMark) {
                const QString err = rs.Fields(k.errTxt).toText();
                if (w.inserted) b.hour_INSERTED[i] = err.contains(u'#');
                if (w.lineMark) b.hour_LINE_MARK[i] = err.contains(u'*');
            }
            if (const db::Variant dt = rs.Fields(k.dt); !dt.isNull()) b.hour_DT[i] = DayNumber(dt);
            b.hour_ID[i] = rs.Fields(k.id).toLong();
            b.hour_TIME_TXT[i] = rs.Fields(k.timeTxt).toText();
            b.hour_DATE_TXT[i] = rs.Fields(k.dateTxt).toText();

            pt = 11;
            db::Variant depth = w.rawDepth ? Field(rs, k.depthRaw, "DEPTH_RAW") : db::Variant();
            if (depth.isNull()) depth = rs.Fields(k.depth);
            b.hour_DEPTH[i] = depth.toDouble();
            if (b.hour_DEPTH[i] < 0 || b.hour_DEPTH[i] > kDeepest) {
                // The first row has no earlier row to borrow from.
                if (i == 0) throw db::DbError(9, "Subscript out of range");
                b.hour_DEPTH[i] = b.hour_DEPTH[i - 1];
            }
            b.hour_BIT_DEPTH[i] = 0;
            if (w.bitDepth) {
                const db::Variant bd = rs.Fields(k.bitDepth);
                if (!bd.isNull())
                    b.hour_BIT_DEPTH[i] = bd.toDouble() > kDeepest ? 50000 : bd.toDouble();
            }
            c.BlockMaxDepth = std::max(c.BlockMaxDepth, b.hour_DEPTH[i]);

            pt = 12;
            const double gasRead = rs.Fields(k.gas).toDouble();
            b.hour_GAS_UNITS[i] = std::min(gasRead, 10000.0);
            if (w.h2s) {
                const double v = rs.Fields(k.h2s).toDouble();
                // One step a record, however large the excess.
                if (v > c.scales.H2S.ScaleMax) c.scales.H2S.ScaleMax += 10;
                b.hour_H2S[i] = std::min(v, 500.0);
            }
            if (w.extAmps)
                b.hour_EXT_AMPS[i] = std::min(Field(rs, k.extAmps, "EXT_AMPS").toDouble(), 20.0);

            pt = 13;
            if (w.dcVolts) FirstOfPair(b.hour_DC_VOLTS, i, Field(rs, k.volts, "VOLTS").toDouble());
            if (w.acVolts) SecondOfPair(b.hour_AC_VOLTS, i, Field(rs, k.volts, "VOLTS").toDouble());
            if (w.cgPrs)
                FirstOfPair(b.hour_CG_PRS, i, Field(rs, k.chromVac, "CHROM_VAC").toDouble());
            if (w.pumps) {
                const db::Variant spm = rs.Fields(k.spm);
                if (!spm.isNull()) b.hour_TOTAL_SPM[i] = spm.toDouble();
            }
            if (w.cgTemp)
                SecondOfPair(b.hour_CG_TEMP, i, Field(rs, k.chromVac, "CHROM_VAC").toDouble());
            if (w.hrmTemp) {
                SecondOfPair(b.hour_HRM_TEMP, i, Field(rs, k.temp, "TEMP").toDouble());
                b.hour_HRM_TEMP[i] = std::min(b.hour_HRM_TEMP[i], 200.0);
            }
            if (w.temp) {
                FirstOfPair(b.hour_TEMP, i, Field(rs, k.temp, "TEMP").toDouble());
                b.hour_TEMP[i] = std::min(b.hour_TEMP[i], 200.0);
            }
            if (w.exhPrs)
                SecondOfPair(b.hour_EXH_PRS, i, Field(rs, k.sampleVac, "SAMPLEVAC").toDouble());
            if (w.vac) b.hour_LPH[i] = Field(rs, k.lph, "LPH").toDouble();
            if (w.o2) b.hour_O2[i] = rs.Fields(k.o2).toDouble();
            if (w.co2) {
                const double v = rs.Fields(k.co2).toDouble();
                if (v > c.scales.CO2.ScaleMax) c.scales.CO2.ScaleMax += 10;
                b.hour_CO2[i] = v;
            }
            if (w.vac) FirstOfPair(b.hour_VAC, i, Field(rs, k.sampleVac, "SAMPLEVAC").toDouble());

            pt = 14;
            const double test = Field(rs, k.cgTest, "CGTESTNUM").valueOr(0);
            b.hour_CGTESTNUM[i] = test;
            const db::Variant cgv = w.cgv ? Field(rs, k.cgv, "CGV") : db::Variant();
            if (w.cgv && !cgv.isNull()) b.hour_CGV[i] = cgv.toDouble();
            if (test == c.LastCgTest) {
                if (i > 0) b.hour_CGV_BASE[i] = b.hour_CGV_BASE[i - 1];
            } else {
                c.LastCgTest = test;
                // The raw trace of a run starts from its own first sample.
                const db::Variant first = w.cgv ? cgv : Field(rs, k.cgv, "CGV");
                if (!first.isNull()) b.hour_CGV_BASE[i] = -first.toDouble();
            }

            pt = 15;
            Components(c, rs, k, i, gasRead);
            if (w.oil >= 1 && w.oil <= 4) OilIndicator(b, i, w.oil);
            b.hour_GAS_TEXT[i] = Field(rs, k.gasText, "GAS_TEXT").toText();

            pt = 16;
            if (b.hour_TIME_TXT[i].left(2) != tagHour || b.hour_DATE_TXT[i] != tagDate) {
                if (c.BlockCount >= kFewestRows) break;
                // An hour too short to show by itself: start again from here.
                c.BlockCount = 0;
                tagHour = b.hour_TIME_TXT[i].left(2);
                tagDate = b.hour_DATE_TXT[i];
                newest = b.hour_DT[i];
            }

            pt = 17;
            // Into the row as it now stands: after a restart that is row 0,
            // while the fields above stayed where they were read.
            const int r = c.BlockCount;
            if (w.wits)
                b.hour_WITS[r] =
                    (k.wits < 0 ? rs.Fields(k.witsName) : rs.Fields(k.wits)).valueOr(0);
            for (int n = 0; n < 4; ++n)
                if (w.custom[n]) b.hour_WITS_custom[n][r] = rs.Fields(k.custom[n]).valueOr(0);

            c.BlockCount += 1;
            if (c.BlockCount >= kBlockLimit) break;
            rs.MovePrevious();
        }

        pt = 20;
        if (c.BlockCount == 0) c.BlockCount = 1;
        double oldest = newest;
        const bool atRecord = !rs.Bof() && !rs.Eof();
        if (!atRecord || !rs.Fields(k.dt).isNull()) oldest = b.hour_DT[c.BlockCount - 1];
        c.BlockMinutes = MinutesBetween(oldest, newest);
        c.HourPointer = atRecord ? rs.AbsolutePosition() : -1;
        SetTitle(ws);
    } catch (const std::exception& e) {
        ws.db.Gdb_error = true;
        station::disply_text_alarms(ws, "DB Gas Chart Rd Err: " + db::Describe(e) +
                                            " Error point: " + QString::number(pt));
        c.HourPointer = 0;
        store::PrimeLastRecord(ws);
    }
}

} // namespace chart
