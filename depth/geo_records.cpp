#include "depth/geo_records.h"

#include "db/job_error.h"
#include "db/schema.h"
#include "depth/lag.h"
#include "store/lifecycle.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/messages.h"
#include "workstation/select_tool.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace depth::geo {

int32_t IdAtRow(const Workstation& ws, double y) {
    const auto& rows = ws.chart.RowRecordId;
    if (!(y >= 0) || y >= static_cast<double>(rows.size())) return 0;
    return rows[static_cast<size_t>(y)];
}

int32_t Foot(double depth) {
    return static_cast<int32_t>(std::trunc(std::fabs(depth)));
}

double Num(const db::Recordset& rs, const char* field) {
    return rs.Fields(field).valueOr(0);
}

void Locate(db::Recordset& rs, int32_t id) {
    const int32_t count = rs.RecordCount();
    if (count == 0) return;
    rs.SetAbsolutePosition(std::clamp(id - 1, 0, count - 1));
    while (Num(rs, "ID") > id) {
        rs.MovePrevious();
        if (rs.Bof()) {
            rs.MoveFirst();
            return;
        }
    }
    while (Num(rs, "ID") < id) {
        rs.MoveNext();
        if (rs.Eof()) {
            rs.MoveLast();
            return;
        }
    }
}

void ForgetFoot(Workstation& ws, double depth) {
    const int32_t foot = Foot(depth);
    if (foot < kDepthSlots) ws.depth.RopMinFt[foot] = 0;
}

namespace {

// The job's records in packet order on the shared connection, the keys read
// with the loop running, before the edit takes the write lock.
db::Recordset FreshSet(Workstation& ws) {
    const auto& conn = ws.db.Gdb.connection();
    conn->longReadPulse = [pulse = station::Pulse(ws)]() mutable { pulse.beat(); };
    struct Quiet {
        db::Connection& c;
        ~Quiet() { c.longReadPulse = nullptr; }
    } quiet{*conn};
    return ws.db.Gdb.OpenRecordset(db::RecordQuery(ws.db.Gtable_name));
}

} // namespace

bool Run(Workstation& ws, const QString& prefix, const Body& body) {
    auto& st = ws.db;
    if (st.Gdb_busy) return false;
    if (!st.Grecords.isOpen()) {
        QString path;
        bool verify = false;
        store::OpenSharedDb(ws, path, verify);
        if (!st.Grecords.isOpen()) return false;
    }
    station::BusyFlag busy(st.Gdb_busy);
    int32_t kept = -1;
    int step = 1;
    bool done = true;
    db::Recordset rs;
    try {
        kept = st.Grecords.AbsolutePosition();
        // Rows the writer added since the chart's last open are in the
        // chart's rows too.
        rs = FreshSet(ws);
        step = 2;
        store::EditTransaction edit(ws, st.Gdb);
        body(rs, step, edit);
        edit.commit();
    } catch (const std::exception& e) {
        done = false;
        station::disply_text_alarms(ws, db::JobError(prefix, e, step));
    }
    if (rs.isOpen()) st.Grecords = rs;
    station::ClearSelection(ws);
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    try {
        if (kept >= 0 && kept < st.Grecords.RecordCount()) st.Grecords.SetAbsolutePosition(kept);
    } catch (const std::exception&) {
        // Only the chart's place in the dynaset; the next draw finds its own.
    }
    return done;
}

bool Selection(Workstation& ws, db::Recordset& rs, int32_t& first, int32_t& last) {
    const auto& c = ws.chart;
    if (c.SelectStartY < 0 || c.SelectEndY < 0) return false;
    const int32_t a = IdAtRow(ws, c.SelectStartY);
    const int32_t b = IdAtRow(ws, c.SelectEndY);
    if (a < 1 || b < 1 || rs.RecordCount() == 0) return false;
    Locate(rs, a);
    first = rs.AbsolutePosition();
    Locate(rs, b);
    last = rs.AbsolutePosition();
    if (first > last) std::swap(first, last);
    return true;
}

void Refresh(Workstation& ws, int32_t first, int32_t last) {
    int32_t result = 0;
    Collect_ROP_Data(ws, first, last, false, result);
    station::make_chart(ws);
}

} // namespace depth::geo
