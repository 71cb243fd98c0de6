#pragma once
// A forward pass over chosen columns of the record table in packet order,
// straight off one statement: the file writers read every record once and
// never move back, so they do without the keyset of a recordset.

#include "db/database.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

struct sqlite3_stmt;

namespace products {

class RecordScan {
  public:
    // Columns missing from an older file read as Null.
    RecordScan(const db::Database& db, const QString& table, const QStringList& columns);
    ~RecordScan();
    RecordScan(const RecordScan&) = delete;
    RecordScan& operator=(const RecordScan&) = delete;

    // The next record; false at the end. Throws DbError on a failure.
    bool next();

    bool isNull(int i) const;
    double number(int i) const; // Null reads as 0
    // The field as plain text: numbers in their shortest form, Null empty.
    QByteArray text(int i) const;
    // A date column, invalid when Null or unreadable.
    QDateTime date(int i) const;

  private:
    db::Database db_;
    sqlite3_stmt* st_ = nullptr;
    std::vector<bool> missing_;
};

} // namespace products
