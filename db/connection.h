#pragma once
// One SQLite connection to a job file, shared by the Database handles and the
// recordsets opened on it. Inside the store only: the rest of the program
// speaks through Database and Recordset.

#include "db/db_error.h"

#include <QHash>
#include <QString>
#include <functional>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace db {

enum class OpenMode { ReadWrite, ReadOnly, Create };

class Connection {
  public:
    // Opens, or throws DbError (file missing, not a data base, locked ...).
    static std::shared_ptr<Connection> Open(const QString& path, OpenMode mode);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool isOpen() const { return db_ != nullptr; }
    // Throws "Object invalid or no longer set" once closed.
    sqlite3* handle() const;
    const QString& path() const { return path_; }
    bool readOnly() const;
    void close();

    // A prepared statement kept for the life of the connection, ready to
    // bind: the live writer and the long passes run the same few statements
    // again and again.
    sqlite3_stmt* statement(const QString& sql);
    void exec(const QString& sql);
    // Before the first write: the file goes over to WAL mode. Not at the
    // open, so a file that is only looked at (an older job whose conversion
    // the user declines) is left exactly as it was.
    void ensureWal();
    [[noreturn]] void fail(int rc, const QString& what = {}) const;

    // Counts every change made through this connection; a recordset's
    // read-ahead is dropped when it moved on behind its back.
    int64_t totalChanges() const;

    // Called now and then inside one long read (the keys of a whole job
    // for a recordset), which holds no write lock, so the program can let
    // its event loop run; empty for none.
    std::function<void()> longReadPulse;

    int transDepth = 0;

    // The file of a connection of this process that holds a write lock now,
    // or empty. Rows are written from one thread only (the log worker never
    // takes a write lock), so a connection that waits for such a lock waits
    // in vain: the holder can only let go once the waiter has returned. So
    // whoever lets the event loop run must hold none; the
    // one exception, an edit that must be all or nothing, first makes every
    // other writer stand back (store/edit_transaction.h).
    static QString WriteLockHeld();
    // Closes every connection of this process to the file at `path`, so its
    // log is folded into it and removed before the file is replaced. A fold
    // the log worker has under way ends first (db/checkpoint.h).
    static void CloseAllOn(const QString& path);

  private:
    Connection() = default;
    sqlite3* db_ = nullptr;
    QString path_;
    bool walChecked_ = false;
    QHash<QString, sqlite3_stmt*> statements_;
};

// Resets a cached statement when the use of it ends, however it ends.
class StatementUse {
  public:
    StatementUse(Connection& c, const QString& sql);
    ~StatementUse();
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    sqlite3_stmt* get() const { return s_; }
    // sqlite3_step; true while a row is there, false at the end; throws on error.
    bool step();

  private:
    Connection& c_;
    sqlite3_stmt* s_;
};

} // namespace db
