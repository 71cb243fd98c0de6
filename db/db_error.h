#pragma once
// A failed database operation: a number the messages can test and a
// description they can show. The numbers are the ones the record writer and
// the other jobs test for (3022 duplicate key, 3010 table exists ...), so the
// engine's own codes are mapped onto them in one place.

#include <QString>
#include <stdexcept>

struct sqlite3;

namespace db {

namespace err {
constexpr int InvalidUseOfNull = 94;
constexpr int TypeMismatch = 13;
constexpr int Engine = 3000;          // anything the table below does not name
constexpr int InvalidArgument = 3001; // AbsolutePosition out of range and the like
constexpr int TableExists = 3010;
constexpr int UpdateWithoutEdit = 3020;
constexpr int NoCurrentRecord = 3021;
constexpr int DuplicateKey = 3022;
constexpr int FileNotFound = 3024;
constexpr int DiskFull = 3026;
constexpr int ReadOnly = 3027;
constexpr int NoPermission = 3033;
constexpr int NoTransaction = 3034;
constexpr int DiskError = 3043;
constexpr int Damaged = 3049;
constexpr int TableNotFound = 3078;
constexpr int RecordDeleted = 3167;
constexpr int FieldExists = 3191;
constexpr int Locked = 3260;
constexpr int ItemNotFound = 3265;
constexpr int NotADatabase = 3343;
constexpr int ObjectClosed = 3420;
constexpr int ConversionError = 3421;
} // namespace err

class DbError : public std::runtime_error {
  public:
    DbError(int number, const QString& description)
        : std::runtime_error(description.toStdString()), number_(number),
          description_(description) {}
    int number() const { return number_; }
    const QString& description() const { return description_; }

  private:
    int number_;
    QString description_;
};

// The error of the last failed call on a connection, by its extended result
// code. `what` names the file or table the message should mention.
DbError EngineError(sqlite3* db, int code, const QString& what = {});
[[noreturn]] void ThrowEngineError(sqlite3* db, int code, const QString& what = {});

} // namespace db
