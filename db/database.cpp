#include "db/database.h"

#include "db/recordset.h"

#include <QFile>
#include <cstdio>
#include <sqlite3.h>

namespace db {

const char* SqlType(DataType t) {
    switch (t) {
    case DataType::Double:
        return "REAL";
    case DataType::Long:
        return "INTEGER";
    case DataType::Text:
    case DataType::Date:
        return "TEXT";
    }
    return "REAL";
}

namespace {

Connection& Open(const std::shared_ptr<Connection>& c) {
    if (!c) throw DbError(err::ObjectClosed, QStringLiteral("Object invalid or no longer set"));
    c->handle();
    return *c;
}

QString Quote(const QString& name) {
    return '"' + QString(name).replace('"', "\"\"") + '"';
}

} // namespace

QString Database::Name() const {
    return c_ ? c_->path() : QString();
}

bool Database::ReadOnly() const {
    return Open(c_).readOnly();
}

Recordset Database::OpenRecordset(const QString& sql, RecordsetType type) const {
    Open(c_);
    return Recordset(c_, sql, type);
}

void Database::Execute(const QString& sql) const {
    Open(c_).exec(sql);
}

void Database::BeginTrans() const {
    Connection& c = Open(c_);
    if (c.transDepth == 0) {
        // A read-only file can't take the write lock; its transactions only
        // read.
        c.exec(c.readOnly() ? "BEGIN" : "BEGIN IMMEDIATE");
    } else {
        c.exec("SAVEPOINT level" + QString::number(c.transDepth + 1));
    }
    ++c.transDepth;
}

void Database::CommitTrans() const {
    Connection& c = Open(c_);
    if (c.transDepth == 0)
        throw DbError(err::NoTransaction,
                      QStringLiteral("Commit or roll back without a transaction begun"));
    if (c.transDepth > 1) {
        c.exec("RELEASE level" + QString::number(c.transDepth));
        --c.transDepth;
        return;
    }
    try {
        c.exec("COMMIT");
    } catch (const DbError&) {
        // Some failures end the transaction in the engine, others leave it
        // open for the caller to roll back.
        if (sqlite3_get_autocommit(c.handle())) c.transDepth = 0;
        throw;
    }
    c.transDepth = 0;
}

void Database::Rollback() const {
    Connection& c = Open(c_);
    if (c.transDepth == 0)
        throw DbError(err::NoTransaction,
                      QStringLiteral("Commit or roll back without a transaction begun"));
    if (c.transDepth > 1) {
        const QString name = "level" + QString::number(c.transDepth);
        --c.transDepth;
        c.exec("ROLLBACK TO " + name + "; RELEASE " + name);
        return;
    }
    c.transDepth = 0;
    if (!sqlite3_get_autocommit(c.handle())) c.exec("ROLLBACK");
}

int Database::TransactionLevel() const {
    return isOpen() ? c_->transDepth : 0;
}

bool Database::InWriteTransaction() const {
    return isOpen() && sqlite3_txn_state(c_->handle(), "main") == SQLITE_TXN_WRITE;
}

QStringList Database::TableDefs() const {
    QStringList names;
    StatementUse q(Open(c_),
                   "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%' "
                   "ORDER BY name");
    while (q.step())
        names << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(q.get(), 0)));
    return names;
}

bool Database::HasTable(const QString& table) const {
    return TableDefs().contains(table, Qt::CaseInsensitive);
}

QStringList Database::FieldNames(const QString& table) const {
    QStringList names;
    StatementUse q(Open(c_), "SELECT name FROM pragma_table_info(?1)");
    const QByteArray t = table.toUtf8();
    sqlite3_bind_text(q.get(), 1, t.constData(), static_cast<int>(t.size()), SQLITE_TRANSIENT);
    while (q.step())
        names << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(q.get(), 0)));
    return names;
}

void Database::Append(const TableDef& table) const {
    Connection& c = Open(c_);
    if (HasTable(table.name))
        throw DbError(err::TableExists, "Table already exists: " + table.name);
    QString cols;
    for (const FieldDef& f : table.fields)
        cols += (cols.isEmpty() ? "" : ", ") + Quote(f.name) + " " + SqlType(f.type);
    c.exec("CREATE TABLE " + Quote(table.name) + " (" + cols + ")");
}

void Database::AppendField(const QString& table, const FieldDef& field) const {
    Connection& c = Open(c_);
    if (FieldNames(table).contains(field.name, Qt::CaseInsensitive))
        throw DbError(err::FieldExists, "Cannot define field more than once: " + field.name);
    c.exec("ALTER TABLE " + Quote(table) + " ADD COLUMN " + Quote(field.name) + " " +
           SqlType(field.type));
}

void Database::Close() {
    if (c_) c_->close();
    c_.reset();
}

sqlite3* Database::handle() const {
    return Open(c_).handle();
}

const std::shared_ptr<Connection>& Database::connection() const {
    return c_;
}

Database OpenDatabase(const QString& path, OpenMode mode) {
    return Database(Connection::Open(path, mode));
}

std::optional<DbError> TryOpenDatabase(const QString& path, Database& out, OpenMode mode) {
    out = Database();
    try {
        out = OpenDatabase(path, mode);
    } catch (const DbError& e) {
        return e;
    }
    return std::nullopt;
}

Transaction::Transaction(Database db) : db_(std::move(db)) {
    db_.BeginTrans();
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        if (db_.isOpen() && db_.TransactionLevel() > 0) db_.Rollback();
    } catch (const DbError&) {
        // The connection is going anyway; closing it rolls back.
    }
}

void Transaction::Commit() {
    open_ = false;
    db_.CommitTrans();
}

struct Workspace::Impl {
    QString name;
    bool open = true;
    std::vector<std::weak_ptr<Connection>> connections;
};

Workspace Workspace::Create(const QString& name) {
    Workspace w;
    w.d_ = std::make_shared<Impl>();
    w.d_->name = name;
    return w;
}

bool Workspace::isOpen() const {
    return d_ && d_->open;
}

QString Workspace::Name() const {
    return d_ ? d_->name : QString();
}

Database Workspace::OpenDatabase(const QString& path, OpenMode mode) {
    if (!isOpen())
        throw DbError(err::ObjectClosed, QStringLiteral("Object invalid or no longer set"));
    Database d = db::OpenDatabase(path, mode);
    std::erase_if(d_->connections, [](const auto& w) { return w.expired(); });
    d_->connections.push_back(d.connection());
    return d;
}

std::vector<Database> Workspace::Databases() const {
    std::vector<Database> out;
    if (!isOpen()) return out;
    for (const auto& w : d_->connections)
        if (auto c = w.lock(); c && c->isOpen()) out.emplace_back(c);
    return out;
}

void Workspace::BeginTrans() {
    for (Database& db : Databases()) db.BeginTrans();
}

void Workspace::CommitTrans() {
    for (Database& db : Databases()) db.CommitTrans();
}

void Workspace::Rollback() {
    for (Database& db : Databases())
        if (db.TransactionLevel() > 0) db.Rollback();
}

void Workspace::Close() {
    if (!d_) return;
    for (Database& db : Databases()) db.Close();
    d_->connections.clear();
    d_->open = false;
}

void CopyDatabase(const QString& from, const QString& to) {
    Database src = OpenDatabase(from, OpenMode::ReadOnly);
    RemoveJobFile(to);
    Database dst = OpenDatabase(to, OpenMode::Create);
    sqlite3_backup* b = sqlite3_backup_init(dst.handle(), "main", src.handle(), "main");
    if (!b) ThrowEngineError(dst.handle(), sqlite3_extended_errcode(dst.handle()), to);
    const int rc = sqlite3_backup_step(b, -1);
    sqlite3_backup_finish(b);
    if (rc != SQLITE_DONE) ThrowEngineError(dst.handle(), rc, to);
}

void CompactDatabase(const QString& from, const QString& to) {
    Database src = OpenDatabase(from, OpenMode::ReadWrite);
    StatementUse q(*src.connection(), "VACUUM INTO ?1");
    const QByteArray t = to.toUtf8();
    sqlite3_bind_text(q.get(), 1, t.constData(), static_cast<int>(t.size()), SQLITE_TRANSIENT);
    q.step();
}

bool RemoveJobFile(const QString& path) {
    Connection::CloseAllOn(path);
    QFile::remove(path + "-wal");
    QFile::remove(path + "-shm");
    return !QFile::exists(path) || QFile::remove(path);
}

bool PutJobFileInPlace(const QString& from, const QString& to) {
    Connection::CloseAllOn(from);
    QFile::remove(from + "-wal");
    QFile::remove(from + "-shm");
    // The last close of the old file folds its log into it, so the log can
    // go; the new file then takes its place in one rename. Killed at any
    // moment, the name holds one whole job, the old or the new, never none.
    Connection::CloseAllOn(to);
    QFile::remove(to + "-wal");
    QFile::remove(to + "-shm");
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace db
