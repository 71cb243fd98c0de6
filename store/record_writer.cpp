// SaveKWData: the newest packet becomes one row of the job, in one
// transaction of its own.
//
// The connection. The row is written on a connection of the writer's own,
// never the shared one, so a long job holding the shared set does not stop
// the live data. That connection is kept between rows rather than opened for
// each one: a row every six seconds would not notice the cost, but a bulk
// feed (the demonstration job, a replay) would, and what anyone can see is
// the same, because the connection is opened again whenever the text of
// txt_db_path names another path or another file (a save-as or a compact
// puts a new file under the same name), and dropped after any failure, which
// rolls back what was open just as a close would.
//
// The row always commits on its own. A long pass commits its batch before it
// lets the loop run, so the file's write lock is free when a packet comes in.
// The one exception is an edit that must be all or nothing and still lets
// the loop run inside its transaction (store/edit_transaction.h): while it
// is open (writesHeld) the row is made ready as usual, with every running
// figure moved as usual, but kept in the store's held rows, and written
// after the edit ends, before any newer row. Another program holding the
// lock (a copy, a look with an SQLite tool) is waited for up to the
// connection's busy time-out, and then the row fails with "DB Write Err" like
// any other failure; a failed row is not tried again.
#include "store/record_writer.h"

#include "db/file_id.h"
#include "db/schema.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <functional>
#include <optional>

namespace store {

namespace {

using namespace acq;

// How a column of step 9 gets its value.
enum class From {
    Id,          // NextRecordId
    Text,        // the field as it is
    Date,        // date of DATE + " " + OMBRITIME
    Val,         // Val of the field
    Alternating, // Val of the first field, or of the second + 10000
};

struct PacketColumn {
    const char* column;
    From from;
    int field;
    int second = -1; // the second quantity of an alternating pair
};

// Step 9, in the order the columns are set; the step counter follows it.
constexpr PacketColumn kPacketColumns[] = {
    {"ID", From::Id, -1},
    {"SERIAL_NUM", From::Text, SERIALNUM},
    {"DATE_TXT", From::Text, DATE},
    {"TIME_TXT", From::Text, OMBRITIME},
    {"DT", From::Date, -1},
    {"DEPTH", From::Val, DEPTH},
    {"DEPTH_RAW", From::Val, DEPTH},
    {"GAS_UNITS", From::Val, GASUNITS},
    {"O2", From::Val, O2},
    {"CO2", From::Val, CO2},
    {"ATTEN", From::Val, ATTEN},
    {"TEMP", From::Alternating, TEMP, HRMTEMP},
    {"MIN_FT", From::Val, MINFT},
    {"FT_HR", From::Val, FTHR},
    {"LPH", From::Val, LPH},
    {"SAMPLEVAC", From::Alternating, SAMPLEVAC, EXHPRS},
    {"VOLTS", From::Alternating, VOLTS, ACVOLTS},
    {"LOWGUV", From::Val, LOWGUV},
    {"HIGHGUV", From::Val, HIGHGUV},
    {"CGTESTNUM", From::Val, CGTESTNUM},
    {"CGV", From::Val, CGV},
    {"H2SV", From::Val, H2SV},
    {"H2S", From::Val, H2S},
    {"EXT_AMPS", From::Val, EXTAMPS},
    {"CHROM_VAC", From::Alternating, CHROMVAC, COLTEMP},
    // The text of the field, not its Val: the column converts it, and text
    // that is no number fails the row here.
    {"PACKET_NUM", From::Text, PACKETNUM},
    {"C1", From::Val, C1},
    {"C2", From::Val, C2},
    {"C3", From::Val, C3},
    {"IC4", From::Val, IC4},
    {"NC4", From::Val, NC4},
    {"IC5", From::Val, IC5},
    {"NC5", From::Val, NC5},
};

// Step 17: the WITS columns by slot.
struct WitsColumn {
    const char* column;
    int slot;
};
constexpr WitsColumn kWitsColumns[] = {
    {"INCLINATION", 15}, {"AZIMUTH", 16}, {"GAMMA_LAG", 20}, {"GAMMA", 21},
    {"KW7001", 22},      {"KW7003", 23},  {"KW7005", 24},    {"KW7007", 25},
};

// Step counter marks of the handler: below kCommitStep the row is rolled back.
constexpr int kUpdateStep = 52;
constexpr int kCommitStep = 53;

bool SameSecond(const QDateTime& a, const QDateTime& b) {
    return a.isValid() && b.isValid() && a.date() == b.date() &&
           a.time().msecsSinceStartOfDay() / 1000 == b.time().msecsSinceStartOfDay() / 1000;
}

// The connection the row goes through (see the top of the file).
db::Database WriterConnection(Workstation& ws) {
    auto& st = ws.db;
    const QString path = ws.fm_Gas_Chart.txt_db_path.text();
    const uint64_t id = db::FileId(path);
    if (st.writerDb.isOpen() && st.writerPath == path && id != 0 && id == st.writerFileId)
        return st.writerDb;
    st.writerDb.Close();
    st.writerDb = db::OpenDatabase(path);
    st.writerPath = path;
    st.writerFileId = id;
    return st.writerDb;
}

// Where a column of the row goes: the recordset, or a held row.
using Put = std::function<void(const char* column, const db::Variant& value)>;

// Steps 9 to 17: the row's columns from the packet, in order, each counted
// on pt; the running figures (the next ID, the diagnostic pair, the pump
// rate and the stroke total) move as they go.
void FillRow(Workstation& ws, int& pt, const Put& put) {
    auto& st = ws.db;
    const auto& f = ws.packet.Gombri_data_array;
    st.NextRecordId += 1;

    // 9-10.
    for (const PacketColumn& c : kPacketColumns) {
        ++pt;
        switch (c.from) {
        case From::Id:
            put(c.column, st.NextRecordId);
            break;
        case From::Text:
            put(c.column, f[c.field]);
            break;
        case From::Date:
            put(c.column, *text::ParseDateTime(f[DATE] + " " + f[OMBRITIME]));
            break;
        case From::Val:
            put(c.column, text::Val(f[c.field]));
            break;
        case From::Alternating:
            put(c.column,
                st.WritePrimaryDiag ? text::Val(f[c.field]) : text::Val(f[c.second]) + 10000);
            // The pair flips once a row, where its last column is set.
            if (c.field == CHROMVAC) st.WritePrimaryDiag = !st.WritePrimaryDiag;
            break;
        }
    }

    // 11. A first TOTAL_SPM; step 14 always overwrites it.
    ++pt;
    put("TOTAL_SPM", ws.wits.Gwits_alive > 0 ? text::Int(ws.wits.Gspm)
                     : ws.wits.Gpumps_manual ? 100.0
                                             : 0.0);
    // 12.
    ++pt;
    put("BIT_DEPTH", ws.wits.Gwits_values[0]);
    // 13. Gas taken while the sample line could not be trusted is marked.
    ++pt;
    put("ERR_TXT", ws.depth.Gline_lag_ok ? f[ERRTXT] : f[ERRTXT] + " *");
    // 14. A sum out of range keeps the last rate.
    const double s = ws.wits.Gwits_values[8] + ws.wits.Gwits_values[9] + ws.wits.Gwits_values[10];
    if (s > -1 && s < 900) ws.wits.Gspm = s;
    ++pt;
    put("TOTAL_SPM", text::Int(ws.wits.Gspm));
    // 15. A packet counts as six seconds: a tenth of a minute's strokes, the
    // fraction lost.
    ws.depth.Gtotal_strokes = text::Int(ws.wits.Gspm / 10 + ws.depth.Gtotal_strokes);
    // 16.
    ++pt;
    put("TOTAL_STROKES", ws.depth.Gtotal_strokes);
    // 17.
    for (const WitsColumn& w : kWitsColumns) {
        ++pt;
        put(w.column, ws.wits.Gwits_values[w.slot]);
    }
}

// Steps 7, 8 and 18-19: one row through the writer's connection in a
// transaction of its own, its columns set by `fill`. A failure is told (a
// full disk or a locked file once, not every six seconds through the night)
// and the row is gone.
bool WriteRow(Workstation& ws, int& pt, const std::function<void(db::Recordset&)>& fill) {
    auto& st = ws.db;
    db::Database db;
    db::Recordset rs;
    // Up to and including Update the row is taken back when the guard goes;
    // a failed commit is not, the engine has already ended that transaction
    // or the close below ends it.
    std::optional<db::Transaction> row;
    try {
        // 7. Append only: the row is added, nothing is read.
        db = WriterConnection(ws);
        rs = db.OpenRecordset(db::RecordQuery(ws.db.Gtable_name), db::RecordsetType::AppendOnly);
        // 8.
        pt = 1;
        row.emplace(db);
        pt = 2;
        rs.AddNew();
        fill(rs);
        // 18.
        pt = kUpdateStep;
        rs.Update();
        pt = kCommitStep;
        row->Commit();
        pt = kCommitStep + 1;
        // 19.
        rs.Close();
    } catch (const std::exception& e) {
        const auto* dbe = dynamic_cast<const db::DbError*>(&e);
        const int number = dbe ? dbe->number() : 0;
        const QString description = dbe ? dbe->description() : QString::fromUtf8(e.what());
        if (number == db::err::DuplicateKey) {
            ws.db.Gdb_error = true;
            station::disply_text_alarms(
                ws, "DB Write Err: Duplacate packet numbers found in the data base.");
        } else if (const QString failure = QString::number(number) + " " + description;
                   failure != st.writerFailure) {
            st.writerFailure = failure;
            ws.db.Gdb_error = true;
            station::disply_text_alarms(ws, "DB Write Err: " + description + " " +
                                                QString::number(number) +
                                                "  Err point: " + QString::number(pt));
        }
        row.reset();
        rs.Close();
        st.writerDb.Close();
        return false;
    }
    st.RecordCount += 1;
    st.writerFailure.clear();
    return true;
}

} // namespace

bool SaveKWData(Workstation& ws) {
    auto& st = ws.db;
    auto& f = ws.packet.Gombri_data_array;

    // 1-2. The packet's time.
    const auto d = text::ParseDateTime(f[DATE] + " " + f[OMBRITIME]);
    if (!d) {
        station::disply_text_alarms(ws, "Invalid time or date from Ombri " + f[DATE] + " " +
                                            f[OMBRITIME]);
        return false;
    }
    // 3. Only the one record before is compared.
    if (SameSecond(*d, st.LastRecordTime)) {
        station::disply_text_alarms(ws, "Duplacate Time/Date Blocked: " +
                                            text::GeneralDate(st.LastRecordTime));
        return false;
    }
    // 4. The time has moved even if the next checks refuse the packet.
    st.LastRecordTime = *d;
    // 5-6. The texts name the fields rather than show them.
    if (f[SERIALNUM].size() >= 21) {
        f[SERIALNUM] = " ";
        station::disply_text_alarms(ws,
                                    QStringLiteral(R"("Incoming data serial number data err " & )"
                                                   R"(Gombri_data_array(SERIALNUM) & " ")"));
        return false;
    }
    if (f[OMBRITIME].size() < 5) {
        station::disply_text_alarms(ws, QStringLiteral(R"("Incoming Data Time err " & )"
                                                       R"(Gombri_data_array(OMBRITIME) & " ")"));
        return false;
    }

    int pt = 0;
    if (st.writesHeld) {
        StoreState::HeldRow held;
        held.serial = f[SERIALNUM];
        pt = 2;
        FillRow(ws, pt, [&](const char* column, const db::Variant& v) {
            held.fields.push_back({column, v, pt});
        });
        st.heldRows.push_back(std::move(held));
        // Taken: it is stored once the edit ends.
        return true;
    }
    // Rows held by an edit that ended without writing them go first.
    WriteHeldRows(ws);
    if (!WriteRow(ws, pt, [&](db::Recordset& rs) {
            FillRow(ws, pt,
                    [&](const char* column, const db::Variant& v) { rs.SetField(column, v); });
        }))
        return false;
    // 20. The logs and the minimised title name the unit of the newest row.
    ws.packet.UnitSerial = f[SERIALNUM];
    return true;
}

void WriteHeldRows(Workstation& ws) {
    auto& st = ws.db;
    if (st.writesHeld || st.heldRows.empty()) return;
    // Taken out first: a row is written once, whatever becomes of it.
    std::vector<StoreState::HeldRow> rows;
    rows.swap(st.heldRows);
    for (const StoreState::HeldRow& row : rows) {
        int pt = 2;
        const bool stored = WriteRow(ws, pt, [&](db::Recordset& rs) {
            for (const StoreState::HeldField& h : row.fields) {
                pt = h.point;
                rs.SetField(h.column, h.value);
            }
        });
        if (stored) ws.packet.UnitSerial = row.serial;
    }
}

} // namespace store
