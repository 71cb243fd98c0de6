#include "db/connection.h"

#include "db/checkpoint.h"
#include "db/file_id.h"

#include <sqlite3.h>

#include <mutex>
#include <vector>

namespace db {

namespace {

// Every connection this process has open. SQLite keeps the same list for its
// own locking; the store keeps one to find who holds a file's write lock.
struct Registry {
    std::mutex m;
    std::vector<std::weak_ptr<Connection>> all;
};
Registry& OpenConnections() {
    static Registry r;
    return r;
}

// How long a statement waits for a lock another connection holds. Inside
// this one thread nobody holds a write lock while the event loop runs (see
// WriteLockHeld), but for an all-or-nothing edit of the whole job, and while
// that is open every other writer of this process stands back (the record
// writer holds its rows until it ends), so this covers the other processes:
// a checkpoint, a copy, a look at the job with another SQLite tool. The wait
// is bounded, and what fails after it says so in its own message.
constexpr int kBusyTimeoutMs = 2000;

// Durability. In WAL mode `synchronous = NORMAL` survives the process being
// killed but may lose the last commits when the machine loses power, since
// the log is only flushed at checkpoints. A logging unit runs on rig power
// and generator switch-overs do happen, and a row comes only every six
// seconds, so FULL: the log is flushed at every commit and a committed row
// survives both.
constexpr const char* kPragmas = "PRAGMA synchronous = FULL";

int AskForFold(void*, sqlite3* db, const char* name, int pages) {
    if (pages >= checkpoint::kFoldAtPages)
        checkpoint::Request(QString::fromUtf8(sqlite3_db_filename(db, name)));
    return SQLITE_OK;
}

} // namespace

std::shared_ptr<Connection> Connection::Open(const QString& path, OpenMode mode) {
    std::shared_ptr<Connection> c(new Connection);
    c->path_ = path;
    int flags = SQLITE_OPEN_NOMUTEX;
    switch (mode) {
    case OpenMode::ReadOnly:
        flags |= SQLITE_OPEN_READONLY;
        break;
    case OpenMode::ReadWrite:
        flags |= SQLITE_OPEN_READWRITE;
        break;
    case OpenMode::Create:
        flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
        break;
    }
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &db, flags, nullptr);
    if (rc != SQLITE_OK) {
        DbError e = EngineError(db, rc, path);
        sqlite3_close(db);
        throw e;
    }
    c->db_ = db;
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    // The first statement reads the file's header: a file that is not a data
    // base, or one another program holds locked, fails here, at the open.
    const int hrc =
        sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (hrc != SQLITE_OK) {
        DbError e = EngineError(db, hrc, path);
        c->close();
        throw e;
    }
    sqlite3_exec(db, kPragmas, nullptr, nullptr, nullptr);
    // The log is folded back by the worker, never inside a commit.
    sqlite3_wal_hook(db, &AskForFold, nullptr);
    Registry& r = OpenConnections();
    std::lock_guard lock(r.m);
    std::erase_if(r.all, [](const auto& w) { return w.expired(); });
    r.all.push_back(c);
    return c;
}

namespace {
std::vector<std::shared_ptr<Connection>> AllOpen() {
    std::vector<std::shared_ptr<Connection>> open;
    Registry& r = OpenConnections();
    std::lock_guard lock(r.m);
    for (const auto& w : r.all)
        if (auto c = w.lock(); c && c->isOpen()) open.push_back(std::move(c));
    return open;
}
} // namespace

void Connection::CloseAllOn(const QString& path) {
    checkpoint::Settle(path);
    for (auto& c : AllOpen())
        if (c->path() == path || SameFile(c->path(), path)) c->close();
}

QString Connection::WriteLockHeld() {
    for (auto& c : AllOpen())
        if (sqlite3_txn_state(c->db_, "main") == SQLITE_TXN_WRITE) return c->path();
    return {};
}

Connection::~Connection() {
    close();
}

sqlite3* Connection::handle() const {
    if (!db_) throw DbError(err::ObjectClosed, QStringLiteral("Object invalid or no longer set"));
    return db_;
}

bool Connection::readOnly() const {
    return db_ && sqlite3_db_readonly(db_, "main") == 1;
}

void Connection::close() {
    if (!db_) return;
    for (sqlite3_stmt* s : std::as_const(statements_)) sqlite3_finalize(s);
    statements_.clear();
    // Closing rolls back what is still open, as a connection that goes away
    // should.
    sqlite3_close_v2(db_);
    db_ = nullptr;
    transDepth = 0;
}

sqlite3_stmt* Connection::statement(const QString& sql) {
    sqlite3* db = handle();
    auto it = statements_.constFind(sql);
    if (it != statements_.constEnd()) return it.value();
    sqlite3_stmt* s = nullptr;
    const QByteArray utf8 = sql.toUtf8();
    const int rc = sqlite3_prepare_v3(db, utf8.constData(), static_cast<int>(utf8.size()),
                                      SQLITE_PREPARE_PERSISTENT, &s, nullptr);
    if (rc != SQLITE_OK) fail(rc);
    statements_.insert(sql, s);
    return s;
}

void Connection::ensureWal() {
    if (walChecked_) return;
    sqlite3* db = handle();
    if (sqlite3_get_autocommit(db) == 0) return; // not inside a transaction
    walChecked_ = true;
    if (readOnly()) return;
    // A file that can't change its mode now keeps the one it has: rollback
    // journal mode is just as safe, only less kind to readers.
    sqlite3_exec(db, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
}

void Connection::exec(const QString& sql) {
    sqlite3* db = handle();
    ensureWal();
    const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) fail(rc);
}

void Connection::fail(int rc, const QString& what) const {
    ThrowEngineError(db_, rc, what);
}

int64_t Connection::totalChanges() const {
    return db_ ? sqlite3_total_changes64(db_) : 0;
}

StatementUse::StatementUse(Connection& c, const QString& sql) : c_(c), s_(c.statement(sql)) {}

StatementUse::~StatementUse() {
    sqlite3_reset(s_);
    sqlite3_clear_bindings(s_);
}

bool StatementUse::step() {
    const int rc = sqlite3_step(s_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    c_.fail(rc);
}

} // namespace db
