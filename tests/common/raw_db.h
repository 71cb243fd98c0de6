#pragma once
// Another program's connection to a job file: plain SQLite, nothing of the
// store, so what it reads is what is on the disk.

#include <QString>
#include <set>

struct sqlite3;

namespace testkit {

class RawDb {
  public:
    enum class Access { ReadWrite, ReadOnly };
    // ReadWrite makes the file when it is missing; ReadOnly never does (a
    // missing job reads as nothing, not as an empty one).
    explicit RawDb(const QString& path, Access access = Access::ReadWrite);
    ~RawDb();
    RawDb(const RawDb&) = delete;
    RawDb& operator=(const RawDb&) = delete;

    // Runs statements; returns the engine's result code.
    int exec(const QString& sql);
    // The first column of the first row as text ("" when there is none,
    // "NULL" for a Null).
    QString value(const QString& sql);
    long long number(const QString& sql) { return value(sql).toLongLong(); }
    // The first column of every row, as whole numbers.
    std::set<long> numbers(const QString& sql);
    long long rows() { return number("SELECT count(*) FROM OMBRI_DB_010"); }
    // The packet numbers of the record table, comma separated.
    QString packets() { return value("SELECT group_concat(PACKET_NUM) FROM OMBRI_DB_010"); }
    // "ok" for a sound file, else SQLite's first complaint.
    QString integrity() { return value("PRAGMA integrity_check"); }
    sqlite3* handle() { return db_; }

  private:
    sqlite3* db_ = nullptr;
};

} // namespace testkit
