// The depth arrays from the job file: the records between two positions (or
// all of them) go through the per-foot collector in packet order.
#include "db/job_error.h"
#include "db/recordset.h"
#include "depth/lag.h"
#include "depth/pass_rhythm.h"
#include "depth/rop_collector.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <optional>
#include <utility>

namespace depth {

namespace {

// A range this small is read without showing the information box: the chart
// reads the newest 4000 records at every draw.
constexpr int32_t kQuietRange = 4001;
constexpr int kYieldEvery = 1000;

// The columns read for every record, then those read only when a record
// closes a foot.
constexpr const char* kColumns[] = {
    "DEPTH", "LAG_GU",    "GAS_UNITS", "ERR_TXT", "KW7001", "KW7003", "KW7005", "KW7007",
    "GAMMA", "GAMMA_LAG", "C1",        "C2",      "C3",     "IC4",    "NC4",    "IC5",
    "NC5",   "DATA1",     "MIN_FT",    "O2",      "CO2",    "H2S",    "DT",     "PACKET_NUM"};
enum Col {
    cDepth,
    cLagGu,
    cGasUnits,
    cErrTxt,
    cKw7001,
    cGamma = cKw7001 + 4,
    cGammaLag,
    cC1,
    cData1 = cC1 + 7,
    cMinFt,
    cO2,
    cCO2,
    cH2S,
    cDt,
    cPacketNum,
};

std::optional<double> Opt(const db::Variant& v) {
    if (v.isNull()) return std::nullopt;
    return v.toDouble();
}

RopOptions ReadOptions(const Workstation& ws, bool lagged) {
    const auto& s = ws.fm_setup;
    RopOptions o;
    o.lagged = lagged;
    // The panel has no gain boxes for the pentanes: they count as they come.
    o.gains = {text::Val(s.txt_c1_gain.text()),
               text::Val(s.txt_c2_gain.text()),
               text::Val(s.txt_c3_gain.text()),
               text::Val(s.txt_ic4_gain.text()),
               text::Val(s.txt_nc4_gain.text()),
               1,
               1};
    o.oilIndicator = s.op1_oil_ind.value();
    o.gammaScaleMax = ws.settings.GammaScale.ScaleMax;
    o.gammaOverride = s.ck_Wits_Gamma_Override.checked();
    o.manualGammaLag = text::Val(s.Manual_Gamma_Lag.text());
    return o;
}

void ReadRecord(const db::Recordset& rs, RopRecord& r) {
    r.depth = Opt(rs.Fields(cDepth));
    r.lagGu = Opt(rs.Fields(cLagGu));
    r.gasUnits = Opt(rs.Fields(cGasUnits));
    // Bad gas matters only to a record that has been lagged.
    r.badGas = r.lagGu && WholeFoot(*r.lagGu) != 0 && rs.Fields(cErrTxt).toText().contains(u'*');
    for (int i = 0; i < 4; ++i) r.custom[i] = Opt(rs.Fields(cKw7001 + i));
    r.gamma = Opt(rs.Fields(cGamma));
    r.gammaLag = Opt(rs.Fields(cGammaLag));
    for (int i = 0; i < 7; ++i) r.gas[i] = Opt(rs.Fields(cC1 + i));
}

void ReadClosing(const db::Recordset& rs, RopRecord& r) {
    r.data1 = Opt(rs.Fields(cData1));
    r.minFt = Opt(rs.Fields(cMinFt));
    r.o2 = Opt(rs.Fields(cO2));
    r.co2 = Opt(rs.Fields(cCO2));
    r.h2s = Opt(rs.Fields(cH2S));
    const db::Variant dt = rs.Fields(cDt);
    r.dt = dt.isNull() ? QDateTime() : dt.toDate();
}

struct Stretch {
    int32_t first = 0;
    int32_t last = 0;
    bool ranged = false;
};

// The packet number at a position of the shared set, when it has one.
std::optional<long long> PacketAt(Workstation& ws, int32_t position) {
    db::Recordset& shared = ws.db.Grecords;
    try {
        if (!shared.isOpen() || position >= shared.RecordCount()) return std::nullopt;
        shared.SetAbsolutePosition(position);
        const db::Variant packet = shared.Fields("PACKET_NUM");
        if (packet.isNull()) return std::nullopt;
        return packet.toInt64();
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

int32_t Collect(Workstation& ws, Stretch st, bool lagged, int& pt) {
    auto& d = ws.depth;
    pt = 2;
    if (st.first > st.last) std::swap(st.first, st.last);
    // A stretch of a long job (the chart reads the newest 4000 records at
    // every draw) opens only the records from its first on, found through
    // the shared set, rather than the keys of the whole table.
    QString from;
    if (st.ranged && st.first > 0)
        if (const auto packet = PacketAt(ws, st.first)) {
            from = " WHERE PACKET_NUM >= " + QString::number(*packet);
            st.last -= st.first;
            st.first = 0;
        }
    db::Database db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    // The keys of a whole job take a while to read: the screen goes on.
    db.connection()->longReadPulse = [pulse = station::Pulse(ws)]() mutable { pulse.beat(); };
    QString columns;
    for (const char* c : kColumns) columns += (columns.isEmpty() ? "" : ", ") + QString(c);
    db::Recordset rs = db.OpenRecordset(" SELECT " + columns + " FROM " + ws.db.Gtable_name + from +
                                        " ORDER BY PACKET_NUM");
    if (rs.RecordCount() == 0) return 0;

    pt = 3;
    rs.MoveFirst();
    rs.MoveLast();
    if (!st.ranged) d.clear();
    rs.MoveFirst();
    // A stretch that starts past the newest record has nothing to read yet.
    if (st.first >= rs.RecordCount()) return 0;
    if (!(st.first < 1 && st.last < 1)) rs.SetAbsolutePosition(st.first);
    int32_t toRead = st.last - st.first;
    if (toRead == 0) toRead = rs.RecordCount();

    pt = 4;
    auto& help = ws.fm_help;
    help.pgbar.setRange(0, toRead + 1);
    help.pgbar.setValue(1);
    if (!(st.ranged && toRead <= kQuietRange)) {
        help.form.setCaption("Gathering ROP Data From Database");
        help.form.setVisible(true);
        station::help_msg(ws, "");
        station::help_msg(ws, lagged ? "Gathering LAGGED ROP data..." : "Gathering ROP data...");
    }
    PassRhythm rhythm(ws, db);
    rhythm.yieldNow();

    pt = 5;
    RopCollector collector(d, ReadOptions(ws, lagged));
    d.RopMaxDepth = 0;
    d.RopMinDepth = 100000;
    RopRecord r;
    ReadRecord(rs, r);
    collector.start(r);

    pt = 6;
    int32_t read = 0;
    db::Variant lastPacket;
    while (!rs.Eof()) {
        ReadRecord(rs, r);
        if (collector.crosses(r)) ReadClosing(rs, r);
        collector.take(r);
        lastPacket = rs.Fields(cPacketNum);
        ++read;
        if (read % kYieldEvery == 0) {
            rhythm.yield();
            const int next = help.pgbar.value() + 1;
            help.pgbar.setValue(next >= help.pgbar.max() ? help.pgbar.max() - 1 : next);
        }
        rs.MoveNext();
        if (st.ranged && !rs.Eof() && rs.AbsolutePosition() >= st.last) break;
    }

    pt = 7;
    if (!lastPacket.isNull() && lastPacket.toLong() > d.RopLastPacket)
        d.RopLastPacket = lastPacket.toLong();
    rs.Close();
    db.Close();
    return read;
}

} // namespace

void Collect_ROP_Data(Workstation& ws, int32_t& firstRec, int32_t& lastRec, bool lagged,
                      int32_t& result) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    int pt = 1;
    try {
        if (firstRec >= 0 && lastRec >= 0) {
            const Stretch st{firstRec, lastRec, !(firstRec == 0 && lastRec == 0)};
            result = Collect(ws, st, lagged, pt);
            firstRec = lastRec;
        }
    } catch (...) {
        station::disply_text_alarms(ws,
                                    "DB ROP Chart Err: " + db::ErrorText(std::current_exception()) +
                                        "  Err pt: " + text::Str(pt));
    }
    ws.fm_help.form.setVisible(false);
}

void Collect_ROP_Data(Workstation& ws) {
    int32_t first = 0, last = 0, result = 0;
    Collect_ROP_Data(ws, first, last, false, result);
}

void cmd_get_all_ROP_Click(Workstation& ws) {
    Collect_ROP_Data(ws);
}

} // namespace depth
