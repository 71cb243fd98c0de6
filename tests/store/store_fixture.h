#pragma once
// Helpers of the store suites: job files in a temporary program folder, and
// a look at a file through a connection of its own, as another program
// would have.

#include "db/database.h"
#include "db/recordset.h"
#include "db/schema.h"
#include "program_folder.h"
#include "raw_db.h"

#include <QString>
#include <algorithm>
#include <numeric>
#include <random>
#include <sqlite3.h>
#include <vector>

namespace storetest {

// A blank job with both tables at `path`.
inline void MakeJob(const QString& path) {
    db::MakeBlankJob(path, db::kRecordTable);
}

using testkit::RawDb;

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
