#pragma once
// The job file through SQLite, under the verbs the rest of the program uses:
// a workspace opens databases, a database opens recordsets, runs statements,
// keeps transactions and knows its tables.
//
// Database and Workspace are handles: copies share one connection, as object
// references do. A closed handle fails every call with "Object invalid or no
// longer set" (3420), so a job that finds the shared connection closed goes
// to its handler instead of crashing.

#include "db/connection.h"
#include "db/db_error.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

struct sqlite3;

namespace db {

class Recordset;

enum class DataType { Double, Long, Text, Date };

// How a recordset reads: a keyset (the whole query, in order) or only the
// door to add rows, which reads nothing.
enum class RecordsetType { Dynaset, AppendOnly };

struct FieldDef {
    QString name;
    DataType type = DataType::Double;
};

struct TableDef {
    QString name;
    std::vector<FieldDef> fields;
    void CreateField(const QString& field, DataType type) { fields.push_back({field, type}); }
};

// The column type in the file, so that any SQLite tool reads and writes it.
const char* SqlType(DataType t);

class Database {
  public:
    Database() = default;
    explicit Database(std::shared_ptr<Connection> c) : c_(std::move(c)) {}

    bool isOpen() const { return c_ && c_->isOpen(); }
    // The path of the file.
    QString Name() const;
    bool ReadOnly() const;

    Recordset OpenRecordset(const QString& sql, RecordsetType type = RecordsetType::Dynaset) const;
    void Execute(const QString& sql) const;

    // Transactions nest; the outer one takes the write lock at once, so a
    // transaction never fails half way because another connection wrote.
    void BeginTrans() const;
    void CommitTrans() const;
    void Rollback() const;
    int TransactionLevel() const;
    // True while this connection holds the file's write lock.
    bool InWriteTransaction() const;

    QStringList TableDefs() const;
    bool HasTable(const QString& table) const;
    QStringList FieldNames(const QString& table) const;
    // A new table; "already exists" is error 3010.
    void Append(const TableDef& table) const;
    // A new column at the end of a table; one that is there already is error
    // 3191, which the upgrade on open ignores.
    void AppendField(const QString& table, const FieldDef& field) const;

    void Close();

    sqlite3* handle() const;
    const std::shared_ptr<Connection>& connection() const;

  private:
    std::shared_ptr<Connection> c_;
};

// Opens a job file, or throws DbError.
Database OpenDatabase(const QString& path, OpenMode mode = OpenMode::ReadWrite);
// Opens a job file; an open error comes back as the result and `out` stays
// closed, nothing is thrown.
std::optional<DbError> TryOpenDatabase(const QString& path, Database& out,
                                       OpenMode mode = OpenMode::ReadWrite);

// Commit on Commit(), roll back when the guard goes away without it.
class Transaction {
  public:
    explicit Transaction(Database db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

  private:
    Database db_;
    bool open_ = true;
};

// A named set of open databases whose transactions go together.
class Workspace {
  public:
    Workspace() = default;
    static Workspace Create(const QString& name);

    bool isOpen() const;
    QString Name() const;
    Database OpenDatabase(const QString& path, OpenMode mode = OpenMode::ReadWrite);
    // The databases of this workspace that are still open.
    std::vector<Database> Databases() const;
    void BeginTrans();
    void CommitTrans();
    void Rollback();
    void Close();

  private:
    struct Impl;
    std::shared_ptr<Impl> d_;
};

// A consistent copy of a job file, whatever its log still holds: a plain file
// copy of a WAL-mode file can miss the newest commits. What stood at `to` is
// removed first.
void CopyDatabase(const QString& from, const QString& to);
// Compact into a new file that must not exist yet.
void CompactDatabase(const QString& from, const QString& to);
// Removes a job file with its log and shared-memory files, after closing
// every connection this process has to it. A log left behind would be read
// as the log of whatever file next takes the name.
bool RemoveJobFile(const QString& path);
// Puts the job file `from` in the place of `to` (see RemoveJobFile).
bool PutJobFileInPlace(const QString& from, const QString& to);

} // namespace db
