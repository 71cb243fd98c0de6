#include "db/db_error.h"

#include <sqlite3.h>

namespace db {

namespace {

// What the engine says in its error text when a plain SQLITE_ERROR is one of
// the cases the jobs tell apart.
struct TextCase {
    const char* starts;
    const char* needle;
    int number;
    const char* description;
};
constexpr TextCase kTextCases[] = {
    {"no such table", "", err::TableNotFound, "No table or query named "},
    {"no such column", "", err::ItemNotFound, "Item not found in this collection: "},
    {"duplicate column name", "", err::FieldExists, "Cannot define field more than once: "},
    {"table ", "already exists", err::TableExists, "Table already exists: "},
};

QString About(const char* text, const QString& what) {
    const QString t = QString::fromLatin1(text);
    return what.isEmpty() ? t : t + " '" + what + "'";
}

} // namespace

DbError EngineError(sqlite3* db, int code, const QString& what) {
    const QString engineText =
        db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(code));
    switch (code & 0xff) {
    case SQLITE_CANTOPEN:
        return {err::FileNotFound, About("Could not find or open the file", what)};
    case SQLITE_NOTADB:
        return {err::NotADatabase, About("The file is not a data base", what)};
    case SQLITE_READONLY:
        return {err::ReadOnly, About("The data base is read-only", what)};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {err::Locked, About("The data base is locked by another program", what)};
    case SQLITE_FULL:
        return {err::DiskFull, About("The disk is full", what)};
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return {err::NoPermission, About("No permission to use the data base", what)};
    case SQLITE_IOERR:
        return {err::DiskError, About("Disk or file error", what)};
    case SQLITE_CORRUPT:
        return {err::Damaged, About("The data base file is damaged", what)};
    case SQLITE_CONSTRAINT:
        if (code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY)
            return {err::DuplicateKey, "Duplicate value in a unique index: " + engineText};
        break;
    case SQLITE_ERROR:
        for (const TextCase& c : kTextCases)
            if (engineText.startsWith(QLatin1String(c.starts)) &&
                engineText.contains(QLatin1String(c.needle)))
                return {c.number, QString::fromLatin1(c.description) + engineText};
        break;
    default:
        break;
    }
    return {err::Engine, engineText.trimmed()};
}

void ThrowEngineError(sqlite3* db, int code, const QString& what) {
    throw EngineError(db, code, what);
}

} // namespace db
