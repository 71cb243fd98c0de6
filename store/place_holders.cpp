// Add_Missing_Packets: a place holder row for every packet number the link
// missed, so that the chart and the lag by time, which count rows as time,
// see six seconds for every packet.
//
// The walk reads the packet numbers in slices on a connection of its own and
// fills each gap with one INSERT ... SELECT from the row before it. Every
// slice is committed before the loop runs, so the live writer, which wants
// the lock for each packet, never waits on this job; a read is never held
// across the loop either, since each slice starts after the last packet
// number seen. Rows added behind the walk are below that number and are
// not met again.
#include "db/connection.h"
#include "db/database.h"
#include "db/job_path.h"
#include "store/range_delete.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

#include <QElapsedTimer>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace store {

namespace {

// Packets read per slice of the walk.
constexpr int kSlice = 20000;
// The longest the job keeps the loop waiting between two runs of it.
constexpr qint64 kYieldMs = 40;

// The columns a place holder takes from its source as they are.
constexpr const char* kCopied =
    "GAS_UNITS, O2, CO2, TEMP, MIN_FT, FT_HR, LPH, SAMPLEVAC, VOLTS, LOWGUV, HIGHGUV, "
    "CGTESTNUM, CGV, H2SV, H2S, EXT_AMPS, CHROM_VAC, C1, C2, C3, IC4, NC4, IC5, NC5, "
    "TOTAL_SPM, BIT_DEPTH, INCLINATION, AZIMUTH, GAMMA_LAG, GAMMA, KW7001, KW7003, "
    "KW7005, KW7007, ATTEN";

// ?1 the row id of the row before the gap, ?2 how many packets are missing.
// Packet n of the gap is n * 6 seconds after the source and has counted the
// source's strokes a packet n times over it. A row whose packet number is
// taken after all (another tool filled the gap meanwhile) is passed over.
QString InsertSql(const QString& table) {
    QString copied = kCopied;
    QString fromSource = "s." + copied.replace(", ", ", s.");
    return QString(
               "WITH RECURSIVE k(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM k WHERE n < ?2), "
               "p AS (SELECT n, datetime(s.DT, '+' || (6 * n) || ' seconds') AS t FROM k, %1 s "
               "WHERE s.rowid = ?1) "
               "INSERT OR IGNORE INTO %1 (PACKET_NUM, ID, SERIAL_NUM, DT, DATE_TXT, TIME_TXT, "
               "DEPTH, DEPTH_RAW, ERR_TXT, TOTAL_STROKES, %2) "
               "SELECT s.PACKET_NUM + p.n, s.ID + p.n, s.SERIAL_NUM, p.t, "
               "strftime('%Y/%m/%d', p.t), strftime('%H:%M:%S', p.t), s.DEPTH, s.DEPTH, '0 *#', "
               "coalesce(s.TOTAL_STROKES, 0) + p.n * CAST(coalesce(s.TOTAL_SPM, 0) / 10 AS "
               "INTEGER), %3 FROM p, %1 s WHERE s.rowid = ?1")
        .arg(table, QString(kCopied), fromSource);
}

struct Gap {
    sqlite3_int64 source;
    sqlite3_int64 missing;
};

class Filler {
  public:
    Filler(Workstation& ws, db::Database& db)
        : ws_(ws), db_(db), c_(*db.connection()), table_(ws.db.Gtable_name),
          insertSql_(InsertSql(table_)),
          sliceSql_(QString("SELECT rowid, PACKET_NUM FROM %1 WHERE PACKET_NUM > ?1 "
                            "ORDER BY PACKET_NUM LIMIT ?2")
                        .arg(table_)) {}

    // The first `pairs` steps from one packet to the next, slice by slice.
    void run(int64_t pairs) {
        clock_.start();
        sqlite3_int64 after = std::numeric_limits<sqlite3_int64>::min();
        int64_t done = 0;
        bool first = true;
        sqlite3_int64 lastRow = 0, lastPacket = 0;
        while (done < pairs && !ws_.closing) {
            std::vector<Gap> gaps;
            int read = 0;
            {
                db::StatementUse slice(c_, sliceSql_);
                sqlite3_bind_int64(slice.get(), 1, after);
                sqlite3_bind_int64(slice.get(), 2, kSlice);
                while (done < pairs && slice.step()) {
                    const sqlite3_int64 row = sqlite3_column_int64(slice.get(), 0);
                    const sqlite3_int64 packet = sqlite3_column_int64(slice.get(), 1);
                    ++read;
                    if (!first) {
                        ++done;
                        if (packet > lastPacket + 1)
                            gaps.push_back({lastRow, packet - lastPacket - 1});
                    }
                    first = false;
                    lastRow = row;
                    lastPacket = packet;
                    after = packet;
                }
            }
            fill(gaps);
            ws_.fm_help.pgbar.setValue(static_cast<int>(std::min<int64_t>(done, INT32_MAX)));
            yield();
            if (read < kSlice) break;
        }
    }

  private:
    void fill(const std::vector<Gap>& gaps) {
        if (gaps.empty()) return;
        auto batch = std::make_unique<db::Transaction>(db_);
        for (const Gap& g : gaps) {
            try {
                db::StatementUse insert(c_, insertSql_);
                sqlite3_bind_int64(insert.get(), 1, g.source);
                sqlite3_bind_int64(insert.get(), 2, g.missing);
                insert.step();
            } catch (const std::exception&) {
                // One gap that can't be filled leaves the others to be.
            }
            if (clock_.elapsed() >= kYieldMs) {
                batch->Commit();
                yield();
                batch = std::make_unique<db::Transaction>(db_);
            }
        }
        batch->Commit();
    }

    void yield() {
        station::DoEvents(ws_);
        clock_.restart();
    }

    Workstation& ws_;
    db::Database& db_;
    db::Connection& c_;
    const QString table_;
    const QString insertSql_;
    const QString sliceSql_;
    QElapsedTimer clock_;
};

} // namespace

bool Add_Missing_Packets(Workstation& ws) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return false;
    auto& help = ws.fm_help;
    try {
        db::Database db = db::OpenDatabase(db::JobPath(ws.fm_Gas_Chart.txt_db_path.text()));
        db.connection()->ensureWal();
        int64_t count = 0;
        {
            db::StatementUse all(*db.connection(), "SELECT count(*) FROM " + ws.db.Gtable_name);
            if (all.step()) count = sqlite3_column_int64(all.get(), 0);
        }
        // The newest few records may still be in the writer's hands.
        const int64_t pairs = count - 4;
        help.pgbar.setRange(0, static_cast<int>(std::clamp<int64_t>(count + 1, 1, INT32_MAX)));
        help.pgbar.setValue(1);
        help.form.setCaption("Inserting Place Holders\r\nDont Touch Any Buttons");
        station::help_msg(ws, "");
        station::help_msg(ws, "Inserting Packets");
        help.form.setVisible(true);
        if (pairs > 0) Filler(ws, db).run(pairs);
        db.Close();
    } catch (const std::exception&) {
        // The job runs with errors ignored: whatever was filled stays.
    }
    help.form.setVisible(false);
    return true;
}

} // namespace store
