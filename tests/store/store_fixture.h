#pragma once
// Helpers of the store suites: job files in a temporary program folder, and
// a look at a file through a connection of its own, as another program
// would have.

#include "program_folder.h"
#include "store/database.h"
#include "store/recordset.h"
#include "store/schema.h"

#include <QString>
#include <algorithm>
#include <numeric>
#include <random>
#include <sqlite3.h>
#include <vector>

namespace storetest {

// A blank job with both tables at `path`.
inline void MakeJob(const QString& path) {
    store::MakeBlankJob(path, store::kRecordTable);
}

// Another program's connection: plain SQLite, nothing of the store.
class RawDb {
  public:
    explicit RawDb(const QString& path) {
        sqlite3_open_v2(path.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr);
        sqlite3_busy_timeout(db_, 2000);
    }
    ~RawDb() { sqlite3_close(db_); }
    RawDb(const RawDb&) = delete;
    RawDb& operator=(const RawDb&) = delete;
    // Runs statements; returns the engine's result code.
    int exec(const QString& sql) {
        return sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    }
    // The first column of the first row as text ("" when there is none,
    // "NULL" for a Null).
    QString value(const QString& sql) {
        sqlite3_stmt* s = nullptr;
        QString out;
        if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &s, nullptr) == SQLITE_OK &&
            sqlite3_step(s) == SQLITE_ROW) {
            out = sqlite3_column_type(s, 0) == SQLITE_NULL
                      ? QStringLiteral("NULL")
                      : QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, 0)));
        }
        sqlite3_finalize(s);
        return out;
    }
    long long number(const QString& sql) { return value(sql).toLongLong(); }
    long long rows() { return number("SELECT count(*) FROM OMBRI_DB_010"); }
    // The packet numbers of the record table, comma separated.
    QString packets() { return value("SELECT group_concat(PACKET_NUM) FROM OMBRI_DB_010"); }
    sqlite3* handle() { return db_; }

  private:
    sqlite3* db_ = nullptr;
};

// Packet numbers 1 .. n, shuffled from the index `from` on when a seed is
// given (rows written in order lie side by side in the table, shuffled ones
// far apart).
inline std::vector<int> Packets(int n, unsigned seed = 0, int from = 0) {
    std::vector<int> p(n);
    std::iota(p.begin(), p.end(), 1);
    if (seed) std::shuffle(p.begin() + from, p.end(), std::mt19937(seed));
    return p;
}

// Rows with the given packet numbers, in that order of insertion, each with
// ID = its packet number, DEPTH = packet * 10 and GAS_UNITS = packet / 2.
inline void InsertPackets(const QString& path, const std::vector<int>& packets) {
    RawDb raw(path);
    raw.exec("BEGIN");
    for (int p : packets)
        raw.exec(QString("INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, DT, DEPTH, GAS_UNITS, ERR_TXT) "
                         "VALUES (%1, %1, '2026-11-01 06:00:00', %2, %3, '0')")
                     .arg(p)
                     .arg(p * 10)
                     .arg(p / 2.0));
    raw.exec("COMMIT");
}

} // namespace storetest
