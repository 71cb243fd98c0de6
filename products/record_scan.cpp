#include "products/record_scan.h"

#include "db/db_error.h"
#include "text/datetime.h"
#include "text/numbers.h"

#include <sqlite3.h>

namespace products {

namespace {
QString Quoted(const QString& name) {
    return '"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + '"';
}
} // namespace

RecordScan::RecordScan(const db::Database& db, const QString& table, const QStringList& columns)
    : db_(db) {
    const QStringList have = db.FieldNames(table);
    QStringList select;
    for (const QString& c : columns) {
        const bool missing = !have.contains(c, Qt::CaseInsensitive);
        missing_.push_back(missing);
        select << (missing ? QStringLiteral("NULL") : Quoted(c));
    }
    const QByteArray sql =
        ("SELECT " + select.join(", ") + " FROM " + Quoted(table) + " ORDER BY PACKET_NUM")
            .toUtf8();
    const int rc = sqlite3_prepare_v2(db.handle(), sql.constData(), -1, &st_, nullptr);
    if (rc != SQLITE_OK) db::ThrowEngineError(db.handle(), rc, table);
}

RecordScan::~RecordScan() {
    sqlite3_finalize(st_);
}

bool RecordScan::next() {
    const int rc = sqlite3_step(st_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    db::ThrowEngineError(db_.handle(), rc);
}

bool RecordScan::isNull(int i) const {
    return sqlite3_column_type(st_, i) == SQLITE_NULL;
}

double RecordScan::number(int i) const {
    switch (sqlite3_column_type(st_, i)) {
    case SQLITE_NULL:
        return 0;
    case SQLITE_INTEGER:
        return static_cast<double>(sqlite3_column_int64(st_, i));
    case SQLITE_FLOAT:
        return sqlite3_column_double(st_, i);
    default:
        // A number another tool stored as text reads by the program's rule.
        return text::Val(
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st_, i))));
    }
}

QByteArray RecordScan::text(int i) const {
    switch (sqlite3_column_type(st_, i)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return QByteArray::number(sqlite3_column_int64(st_, i));
    case SQLITE_FLOAT:
        return text::Str(sqlite3_column_double(st_, i)).toLatin1();
    default:
        return QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(st_, i)),
                          sqlite3_column_bytes(st_, i));
    }
}

QDateTime RecordScan::date(int i) const {
    if (isNull(i)) return {};
    const auto dt = text::FromIso(QString::fromUtf8(text(i)));
    return dt ? *dt : QDateTime();
}

} // namespace products
