#include "raw_db.h"

#include <sqlite3.h>

namespace testkit {

RawDb::RawDb(const QString& path, Access access) {
    const int flags = access == Access::ReadOnly ? SQLITE_OPEN_READONLY
                                                 : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr);
    sqlite3_busy_timeout(db_, 2000);
}

RawDb::~RawDb() {
    sqlite3_close(db_);
}

int RawDb::exec(const QString& sql) {
    return sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
}

QString RawDb::value(const QString& sql) {
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

std::set<long> RawDb::numbers(const QString& sql) {
    std::set<long> out;
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &s, nullptr) == SQLITE_OK)
        while (sqlite3_step(s) == SQLITE_ROW)
            out.insert(static_cast<long>(sqlite3_column_int64(s, 0)));
    sqlite3_finalize(s);
    return out;
}

} // namespace testkit
