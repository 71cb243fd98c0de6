#include "db/recordset.h"

#include "db/columns.h"
#include "db/row_cache.h"

#include <QHash>
#include <QRegularExpression>
#include <sqlite3.h>

#include <cstring>
#include <optional>
#include <unordered_map>

namespace db {

namespace {

[[noreturn]] void NoCurrentRecord() {
    Fail(err::NoCurrentRecord, "No current record");
}

} // namespace

struct Recordset::Impl {
    std::shared_ptr<Connection> conn;
    RecordsetType type = RecordsetType::Dynaset;
    QString table; // as written in the query, quotes and all
    QString columns;
    QString tail;

    std::vector<Column> cols;
    QHash<QString, int> byName;
    mutable std::unordered_map<const char*, int> byPointer;

    std::vector<int64_t> keys;
    int pos = -1;
    bool onDeleted = false;

    EditMode mode = EditMode::None;
    std::vector<std::optional<Variant>> buffer;

    mutable RowCache cache;

    // The text of the last INSERT and UPDATE and the columns they set: a pass
    // that sets the same two fields of a million rows builds its statement
    // once, not once per row.
    std::vector<int> insertCols, updateCols;
    QString insertSql, updateSql;

    // The statement text for writing the buffered columns, rebuilt only
    // when another set of columns is written than the last time.
    const QString& writeSql(EditMode m, const std::vector<int>& set) {
        std::vector<int>& last = m == EditMode::Add ? insertCols : updateCols;
        QString& sql = m == EditMode::Add ? insertSql : updateSql;
        if (!sql.isEmpty() && last == set) return sql;
        QString names, values, sets;
        for (size_t i = 0; i < set.size(); ++i) {
            const QString q = Quote(cols[set[i]].name);
            names += (i ? "," : "") + q;
            values += i ? ",?" : "?";
            sets += (i ? "," : "") + q + "=?";
        }
        if (m == EditMode::Add)
            sql = set.empty() ? "INSERT INTO " + table + " DEFAULT VALUES"
                              : "INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")";
        else
            sql = "UPDATE " + table + " SET " + sets + " WHERE rowid=?";
        last = set;
        return sql;
    }

    int n() const { return static_cast<int>(keys.size()); }
    bool bof() const { return keys.empty() || pos < 0; }
    bool eof() const { return keys.empty() || pos >= n(); }

    Connection& c() const {
        if (!conn) Fail(err::ObjectClosed, "Object invalid or no longer set");
        conn->handle();
        return *conn;
    }

    void parse(const QString& sql) {
        static const QRegularExpression re(
            R"(^\s*SELECT\s+(.+?)\s+FROM\s+("[^"]+"|\[[^\]]+\]|[A-Za-z_][A-Za-z0-9_]*)\s*(.*)$)",
            QRegularExpression::CaseInsensitiveOption |
                QRegularExpression::DotMatchesEverythingOption);
        const auto m = re.match(sql);
        if (!m.hasMatch()) Fail(err::InvalidArgument, "Invalid argument: not a query of one table");
        columns = m.captured(1).trimmed();
        table = m.captured(2);
        if (table.startsWith('[')) table = Quote(table.mid(1, table.size() - 2));
        tail = m.captured(3).trimmed();
        if (tail.endsWith(';')) tail.chop(1);
    }

    void describe() {
        StatementUse q(c(), "SELECT rowid, " + columns + " FROM " + table + " WHERE 0");
        const int count = sqlite3_column_count(q.get());
        cols.clear();
        byName.clear();
        for (int i = 1; i < count; ++i) {
            Column col;
            col.name = QString::fromUtf8(sqlite3_column_name(q.get(), i));
            col.latin1 = col.name.toLatin1();
            col.kind = KindOf(col.name, sqlite3_column_decltype(q.get(), i));
            byName.insert(col.name, i - 1);
            cols.push_back(std::move(col));
        }
        buffer.assign(cols.size(), std::nullopt);
        cache.reset(table, cols);
    }

    void readKeys() {
        keys.clear();
        cache.drop();
        if (type == RecordsetType::Dynaset) {
            StatementUse q(c(), "SELECT rowid FROM " + table + (tail.isEmpty() ? "" : " " + tail));
            const auto& pulse = conn->longReadPulse;
            while (q.step()) {
                keys.push_back(sqlite3_column_int64(q.get(), 0));
                if (pulse && keys.size() % 4096 == 0) pulse();
            }
        }
        pos = keys.empty() ? -1 : 0;
        onDeleted = false;
        mode = EditMode::None;
    }

    int column(const QString& name) const {
        auto it = byName.constFind(name);
        if (it != byName.constEnd()) return it.value();
        for (int i = 0; i < static_cast<int>(cols.size()); ++i)
            if (cols[i].name.compare(name, Qt::CaseInsensitive) == 0) return i;
        return -1;
    }

    // Names are mostly literals: remember where each lives, and check the
    // text every time, so a reused buffer never reads the wrong column.
    int column(const char* name) const {
        auto it = byPointer.find(name);
        if (it != byPointer.end() && std::strcmp(cols[it->second].latin1.constData(), name) == 0)
            return it->second;
        const int i = column(QString::fromLatin1(name));
        if (i >= 0) byPointer[name] = i;
        return i;
    }

    int columnOrFail(int i, const QString& name) const {
        if (i < 0) throw DbError(err::ItemNotFound, "Item not found in this collection: " + name);
        return i;
    }

    void requireCurrent() const {
        if (onDeleted) Fail(err::RecordDeleted, "Record is deleted");
        if (bof() || eof()) NoCurrentRecord();
    }

    Variant read(int col) const {
        requireCurrent();
        if (mode != EditMode::None) {
            if (buffer[col]) return *buffer[col];
            if (mode == EditMode::Add) return {};
        }
        return cache.read(*conn, keys, pos, col);
    }

    void cancelEdit() {
        mode = EditMode::None;
        std::fill(buffer.begin(), buffer.end(), std::nullopt);
    }

    void moved(int dir) {
        cancelEdit();
        onDeleted = false;
        cache.setDirection(dir);
    }
};

Recordset::Recordset(const std::shared_ptr<Connection>& c, const QString& sql, RecordsetType type)
    : d_(std::make_shared<Impl>()) {
    d_->conn = c;
    d_->type = type;
    d_->parse(sql);
    d_->describe();
    d_->readKeys();
}

Recordset::Impl& Recordset::impl() const {
    if (!d_ || !d_->conn) Fail(err::ObjectClosed, "Object invalid or no longer set");
    d_->c();
    return *d_;
}

bool Recordset::isOpen() const {
    return d_ && d_->conn && d_->conn->isOpen();
}
bool Recordset::Bof() const {
    return impl().bof();
}
bool Recordset::Eof() const {
    return impl().eof();
}
int32_t Recordset::RecordCount() const {
    return impl().n();
}

int32_t Recordset::AbsolutePosition() const {
    const Impl& d = impl();
    return d.bof() || d.eof() ? -1 : d.pos;
}

void Recordset::SetAbsolutePosition(int32_t position) {
    Impl& d = impl();
    if (position < 0 || position >= d.n()) Fail(err::InvalidArgument, "Invalid argument");
    d.moved(position >= d.pos ? 1 : -1);
    d.pos = position;
}

void Recordset::MoveFirst() {
    Impl& d = impl();
    if (d.keys.empty()) NoCurrentRecord();
    d.moved(1);
    d.cache.drop();
    d.pos = 0;
}

void Recordset::MoveLast() {
    Impl& d = impl();
    if (d.keys.empty()) NoCurrentRecord();
    d.moved(-1);
    d.cache.drop();
    d.pos = d.n() - 1;
}

void Recordset::MoveNext() {
    Impl& d = impl();
    // After a Delete the next row has moved into the deleted one's place.
    if (d.onDeleted) {
        d.moved(1);
        return;
    }
    if (d.eof()) NoCurrentRecord();
    d.moved(1);
    ++d.pos;
}

void Recordset::MovePrevious() {
    Impl& d = impl();
    if (d.bof()) NoCurrentRecord();
    d.moved(-1);
    --d.pos;
}

void Recordset::Requery() {
    impl().readKeys();
}

Variant Recordset::Fields(const char* name) const {
    const Impl& d = impl();
    return d.read(d.columnOrFail(d.column(name), QString::fromLatin1(name)));
}

Variant Recordset::Fields(const QString& name) const {
    const Impl& d = impl();
    return d.read(d.columnOrFail(d.column(name), name));
}

Variant Recordset::Fields(int index) const {
    const Impl& d = impl();
    if (index < 0 || index >= FieldCount()) d.columnOrFail(-1, QString::number(index));
    return d.read(index);
}

int Recordset::FieldIndex(const QString& name) const {
    return impl().column(name);
}

int Recordset::FieldCount() const {
    return static_cast<int>(impl().cols.size());
}

QString Recordset::FieldName(int index) const {
    const Impl& d = impl();
    if (index < 0 || index >= FieldCount()) d.columnOrFail(-1, QString::number(index));
    return d.cols[index].name;
}

void Recordset::SetField(const char* name, const Variant& value) {
    SetField(impl().columnOrFail(impl().column(name), QString::fromLatin1(name)), value);
}

void Recordset::SetField(const QString& name, const Variant& value) {
    SetField(impl().columnOrFail(impl().column(name), name), value);
}

void Recordset::SetField(int index, const Variant& value) {
    Impl& d = impl();
    if (index < 0 || index >= FieldCount()) d.columnOrFail(-1, QString::number(index));
    if (d.mode == EditMode::None)
        Fail(err::UpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit");
    d.buffer[index] = ToColumn(d.cols[index].kind, value);
}

void Recordset::AddNew() {
    Impl& d = impl();
    d.cancelEdit();
    d.mode = EditMode::Add;
}

void Recordset::Edit() {
    Impl& d = impl();
    d.requireCurrent();
    d.cancelEdit();
    d.mode = EditMode::Edit;
}

void Recordset::Update() {
    Impl& d = impl();
    Connection& c = d.c();
    if (d.mode == EditMode::None)
        Fail(err::UpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit");
    std::vector<int> set;
    for (size_t i = 0; i < d.cols.size(); ++i)
        if (d.buffer[i]) set.push_back(static_cast<int>(i));
    c.ensureWal();
    const int64_t before = c.totalChanges();
    if (d.mode == EditMode::Add) {
        StatementUse q(c, d.writeSql(EditMode::Add, set));
        for (size_t i = 0; i < set.size(); ++i)
            Bind(q.get(), static_cast<int>(i + 1), *d.buffer[set[i]]);
        q.step();
        // A row added is not in the keyset: the cached rows stay as they are.
        d.cache.keepAfterAdd(before, c.totalChanges());
    } else if (!set.empty()) {
        d.requireCurrent();
        StatementUse q(c, d.writeSql(EditMode::Edit, set));
        for (size_t i = 0; i < set.size(); ++i)
            Bind(q.get(), static_cast<int>(i + 1), *d.buffer[set[i]]);
        sqlite3_bind_int64(q.get(), static_cast<int>(set.size() + 1), d.keys[d.pos]);
        q.step();
        d.cache.patch(before, c.totalChanges(), d.pos, d.buffer);
    }
    d.cancelEdit();
}

void Recordset::CancelUpdate() {
    impl().cancelEdit();
}

Recordset::EditMode Recordset::editMode() const {
    return impl().mode;
}

void Recordset::Delete() {
    Impl& d = impl();
    d.requireCurrent();
    Connection& c = d.c();
    c.ensureWal();
    {
        StatementUse q(c, "DELETE FROM " + d.table + " WHERE rowid=?");
        sqlite3_bind_int64(q.get(), 1, d.keys[d.pos]);
        q.step();
    }
    d.cancelEdit();
    d.keys.erase(d.keys.begin() + d.pos);
    d.cache.drop();
    d.onDeleted = true;
}

void Recordset::Close() {
    if (!d_) return;
    d_->cache.drop();
    d_->keys.clear();
    d_->conn.reset();
}

Database Recordset::Parent() const {
    return Database(impl().conn);
}

int64_t Recordset::RowId() const {
    const Impl& d = impl();
    d.requireCurrent();
    return d.keys[d.pos];
}

} // namespace db
