// Finding a chromatograph run in the record table and loading it into
// ws.chro.run. A run is the stretch of consecutive records that carry one
// CGTESTNUM; its samples are the CGV of those records, and its gas split
// comes with the record that follows it, where the instrument reports it.

#include "chromatograph/chromatograph.h"
#include "db/job_error.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <cmath>
#include <sqlite3.h>

namespace chromatograph {

namespace {

double Number(const db::Recordset& rs, const char* name) {
    return rs.Fields(name).valueOr(0);
}

double TestNumber(const db::Recordset& rs) {
    return Number(rs, "CGTESTNUM");
}

// The record position of the record with this ID. IDs follow the packet
// order from 1 when the job is opened, so the position is nearly always the
// ID less one; records renumbered since are looked up by their packet number.
int32_t PositionOfId(db::Recordset& rs, int32_t id) {
    const int32_t guess = id - 1;
    if (guess >= 0 && guess < rs.RecordCount()) {
        rs.SetAbsolutePosition(guess);
        if (rs.Fields("ID").valueOr(0) == id) return guess;
    }
    sqlite3* h = rs.Parent().handle();
    sqlite3_stmt* st = nullptr;
    const QByteArray sql = "SELECT count(*) FROM OMBRI_DB_010 WHERE PACKET_NUM < "
                           "(SELECT PACKET_NUM FROM OMBRI_DB_010 WHERE ID = ?)";
    int32_t position = -1;
    if (sqlite3_prepare_v2(h, sql.constData(), -1, &st, nullptr) == SQLITE_OK) {
        sqlite3_bind_int(st, 1, id);
        if (sqlite3_step(st) == SQLITE_ROW) position = sqlite3_column_int(st, 0);
    }
    sqlite3_finalize(st);
    if (position < 0 || position >= rs.RecordCount())
        throw db::DbError(3021, QStringLiteral("No current record."));
    return position;
}

// The report values of a run, from its first record. CHROM_VAC carries the
// column temperature (from 8000 up, 10000 added) and the pressure in turns:
// this record gives one and the next the other.
void TakeRunFields(Workstation& ws, db::Recordset& rs) {
    CgRun& r = ws.chro.run;
    r.CgBase = -Number(rs, "CGV");
    r.CgTestNum = TestNumber(rs);
    r.CgGasUnits = Number(rs, "GAS_UNITS");
    r.CgLagDepth = Number(rs, "LAG_GU");
    r.CgDepth = std::fabs(Number(rs, "DEPTH"));
    r.CgTimeText = rs.Fields("TIME_TXT").isNull() ? QString() : rs.Fields("TIME_TXT").toText();
    r.CgDateText = rs.Fields("DATE_TXT").isNull() ? QString() : rs.Fields("DATE_TXT").toText();
    r.CgBitDepth = Number(rs, "BIT_DEPTH");
    r.CgSerial = rs.Fields("SERIAL_NUM").isNull() ? QString() : rs.Fields("SERIAL_NUM").toText();
    r.CgMinFt = Number(rs, "MIN_FT");
    r.CgFtHr = Number(rs, "FT_HR");
    r.CgAtten = Number(rs, "ATTEN");
    r.CgLph = Number(rs, "LPH");
    r.CgO2 = Number(rs, "O2");
    r.CgCo2 = Number(rs, "CO2");
    auto pair = [&r](double v) {
        if (v >= 8000)
            r.CgColumnTemp = v - 10000;
        else
            r.CgPressure = v;
    };
    pair(Number(rs, "CHROM_VAC"));
    const int32_t here = rs.AbsolutePosition();
    if (here + 1 < rs.RecordCount()) {
        rs.MoveNext();
        pair(Number(rs, "CHROM_VAC"));
        rs.SetAbsolutePosition(here);
    }
}

// What a walk over a run found.
struct Walk {
    int32_t samples = 0;   // samples stored
    int32_t stoppedAt = 0; // position the walk stopped on (RecordCount at the end)
    bool endOfData = false;
};

// From the first record of a run (current), forward to the next change of
// CGTESTNUM, storing CGV and DT of every record after the first, the record
// of the change included; at most `limit` steps.
Walk WalkRun(Workstation& ws, db::Recordset& rs, int32_t limit) {
    CgRun& r = ws.chro.run;
    const double testNow = TestNumber(rs);
    Walk w;
    for (int32_t step = 0; step < limit; ++step) {
        rs.MoveNext();
        if (rs.Eof()) {
            w.endOfData = true;
            break;
        }
        if (w.samples < kCgSlots) {
            r.CgSamples[w.samples] = Number(rs, "CGV");
            const db::Variant dt = rs.Fields("DT");
            r.CgTimes[w.samples] = dt.isNull() ? QDateTime() : dt.toDate();
            ++w.samples;
        }
        if (TestNumber(rs) != testNow) break;
    }
    w.stoppedAt = w.endOfData ? rs.RecordCount() : rs.AbsolutePosition();
    return w;
}

// Steps common to the three loads once a run is walked: its ends, the gas
// split reported after it, the sliders and the gases in gas units.
void FinishRun(Workstation& ws, db::Recordset& rs, const Walk& w) {
    CgRun& r = ws.chro.run;
    r.CgLastRecord = w.stoppedAt - 1;
    r.CgCount = w.samples - 1;
    static const char* const gases[kGases] = {"C1", "C2", "C3", "IC4", "NC4", "IC5", "NC5"};
    std::array<double, kGases> gas{};
    double sum = 0;
    for (int g = 0; g < kGases; ++g) {
        // A run cut by the end of the table has no report yet.
        const double v = w.endOfData ? 0 : Number(rs, gases[g]);
        gas[g] = v <= 0 ? 0.0001 : v;
        sum += gas[g];
    }
    for (int g = 0; g < kGases; ++g) r.CgPct[g] = gas[g] / sum * 100;
    r.CgSliderGuard = true;
    for (int g = 0; g < kGases; ++g) ws.fm_chro.VS_c[g].setValue(text::CInt(r.CgPct[g]));
    r.CgSliderGuard = false;
    for (int g = 0; g < kGases; ++g) r.CgC[g] = r.CgPct[g] / 100 * r.CgGasUnits;
}

// Puts the shared set back where the caller had it.
class KeepPosition {
  public:
    explicit KeepPosition(db::Recordset& rs)
        : rs_(rs), position_(rs.isOpen() ? rs.AbsolutePosition() : -1) {}
    ~KeepPosition() {
        try {
            if (position_ >= 0 && position_ < rs_.RecordCount()) rs_.SetAbsolutePosition(position_);
        } catch (...) {
        }
    }
    KeepPosition(const KeepPosition&) = delete;
    KeepPosition& operator=(const KeepPosition&) = delete;

  private:
    db::Recordset& rs_;
    int32_t position_;
};

// Steps 1, 3 and 4 of every load, the load itself, then the draw; a failure
// is told with the load's prefix and raises Gdb_error.
template <class Load> void RunLoad(Workstation& ws, const QString& prefix, Load load) {
    CgRun& r = ws.chro.run;
    ws.fm_chro.form.setVisible(true);
    r.CgEndOfData = false;
    r.CgIncomplete = false;
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    station::BusyFlag drawing(ws.chart.Gchart_drawing);
    if (!drawing) return; // a chart draw is under way
    int step = 4;
    try {
        db::Recordset& rs = ws.db.Grecords;
        KeepPosition keep(rs);
        station::DoEvents(ws);
        step = 5;
        if (!load(rs, step)) return;
        step = 12;
        ws.fm_Gas_Chart.ln_selecter.setVisible(false);
        ws.fm_Gas_Chart.sel_type.setVisible(false);
        draw_chromatograph(ws);
    } catch (const std::exception& e) {
        ws.db.Gdb_error = true;
        station::disply_text_alarms(ws, db::JobError(prefix, e, step));
    }
}

} // namespace

void cmd_view_cg_Click(Workstation& ws) {
    auto& c = ws.chart;
    if (c.SelectStartY < 0 || c.SelectEndY < 0 || c.SelectStartY >= chart::kRowSlots ||
        c.SelectEndY >= chart::kRowSlots || c.RowRecordId[c.SelectStartY] == 0 ||
        c.RowRecordId[c.SelectEndY] == 0) {
        ws.fm_Gas_Chart.ln_selecter.setVisible(false);
        ws.fm_Gas_Chart.sel_type.setVisible(false);
        station::disply_text_alarms(ws, "Not enough data to display CG");
        return;
    }
    RunLoad(ws, "View CG Err: ", [&ws](db::Recordset& rs, int& step) {
        CgRun& r = ws.chro.run;
        const int32_t id1 = ws.chart.RowRecordId[ws.chart.SelectStartY];
        const int32_t id2 = ws.chart.RowRecordId[ws.chart.SelectEndY];
        r.CgCount = std::abs(id1 - id2) - 5;
        const int32_t start = std::min(PositionOfId(rs, id1), PositionOfId(rs, id2));
        rs.SetAbsolutePosition(start);
        double testNow = TestNumber(rs);
        const int32_t limit = r.CgCount + 200;
        r.CgFirstRecord = 0;
        step = 6;
        // Out of the selection's own run to the next change of number: the
        // run shown begins there.
        int32_t taken = 0;
        for (; taken < limit; ++taken) {
            if (TestNumber(rs) != testNow) break;
            rs.MoveNext();
            if (rs.Eof()) {
                r.CgEndOfData = true;
                break;
            }
        }
        if (r.CgEndOfData || taken >= limit) {
            // No change within reach: nothing new to show.
            draw_chromatograph(ws);
            return false;
        }
        r.CgFirstRecord = rs.AbsolutePosition();
        TakeRunFields(ws, rs);
        const Walk w = WalkRun(ws, rs, limit - taken);
        r.CgEndOfData = w.endOfData;
        step = 8;
        FinishRun(ws, rs, w);
        return true;
    });
}

void get_next_cg(Workstation& ws) {
    RunLoad(ws, "Next CG Err: ", [&ws](db::Recordset& rs, int& step) {
        CgRun& r = ws.chro.run;
        const CgRun kept = r;
        const int32_t first = r.CgLastRecord + 1;
        if (first >= rs.RecordCount()) {
            r.CgEndOfData = true;
            draw_chromatograph(ws);
            return false;
        }
        r.CgFirstRecord = first;
        rs.SetAbsolutePosition(first);
        TakeRunFields(ws, rs);
        step = 6;
        const Walk w = WalkRun(ws, rs, std::max(kept.CgCount, 0) + 200);
        if (w.endOfData) {
            // The newest run is still being sampled: the run on show stays.
            r = kept;
            r.CgEndOfData = true;
            draw_chromatograph(ws);
            return false;
        }
        step = 8;
        FinishRun(ws, rs, w);
        return true;
    });
}

void get_previous_cg(Workstation& ws) {
    if (ws.chro.run.CgFirstRecord < 30) return; // no earlier run
    RunLoad(ws, "Previous CG Err: ", [&ws](db::Recordset& rs, int& step) {
        CgRun& r = ws.chro.run;
        const CgRun kept = r;
        rs.SetAbsolutePosition(r.CgFirstRecord);
        rs.MovePrevious();
        const double testNow = TestNumber(rs);
        step = 6;
        while (!rs.Bof() && TestNumber(rs) == testNow) rs.MovePrevious();
        if (rs.Bof()) {
            // The run before reaches back to the first record: its start is
            // not in the table, so the run on show stays.
            r = kept;
            r.CgEndOfData = true;
            draw_chromatograph(ws);
            return false;
        }
        rs.MoveNext();
        r.CgFirstRecord = rs.AbsolutePosition();
        TakeRunFields(ws, rs);
        const Walk w = WalkRun(ws, rs, kept.CgFirstRecord - r.CgFirstRecord + 200);
        r.CgEndOfData = w.endOfData;
        step = 8;
        FinishRun(ws, rs, w);
        return true;
    });
}

void cmd_get_next_cg_Click(Workstation& ws) {
    get_next_cg(ws);
}

void cmd_get_previous_cg_Click(Workstation& ws) {
    get_previous_cg(ws);
}

} // namespace chromatograph
