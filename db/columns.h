#pragma once
// The columns of a recordset: what kind of value each keeps, how a value is
// turned into that kind, and how it is bound to a statement. Inside the
// database layer only.

#include "db/variant.h"

#include <QByteArray>
#include <QString>

struct sqlite3_stmt;

namespace db {

enum class ColKind { Integer, Real, Text, Date, Other };

struct Column {
    QString name;
    QByteArray latin1;
    ColKind kind = ColKind::Other;
};

// The column's affinity by SQLite's own rules, with dates told apart by their
// declared type or, for files that declare them as plain text, the name the
// record table gives its date.
ColKind KindOf(const QString& name, const char* declared);

// A name as SQL text, quoted.
QString Quote(const QString& name);

// A value as the column keeps it; text that is no number for a number column
// is "Data type conversion error" (3421).
Variant ToColumn(ColKind kind, const Variant& v);

void Bind(sqlite3_stmt* s, int i, const Variant& v);

[[noreturn]] void Fail(int number, const char* text);

} // namespace db
