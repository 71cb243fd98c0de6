#include "store/recordset.h"

#include "text/datetime.h"
#include "text/numbers.h"

#include <QRegularExpression>
#include <sqlite3.h>

#include <array>
#include <chrono>
#include <cstring>
#include <optional>
#include <unordered_map>

namespace store {

namespace {

using Clock = std::chrono::steady_clock;

// How long rows read ahead stand for the file. Another connection's change
// to a row of the keyset shows at the latest this much later, and a move to
// the first or last record shows it at once. Checking the file on every
// move instead would cost a read lock a row, several times the row itself.
constexpr auto kFreshFor = std::chrono::milliseconds(800);
// Read-ahead grows while a pass goes on in one direction: a jump reads a few
// rows, a long pass reads big blocks, so one statement (and one read lock,
// the dear part of a statement in WAL mode) serves many rows.
constexpr int kFirstBlock = 32;
constexpr int kMaxBlock = 1024;
// Rows of a block that are far apart in the table are read by row id lists.
constexpr int kListBatch = 64;

enum class ColKind { Integer, Real, Text, Date, Other };

struct Column {
    QString name;
    QByteArray latin1;
    ColKind kind = ColKind::Other;
};

// The column's affinity by SQLite's own rules, with dates told apart by their
// declared type or, for files that declare them as plain text, the name the
// record table gives its date.
ColKind KindOf(const QString& name, const char* declared) {
    const QString decl = QString::fromLatin1(declared ? declared : "").toUpper();
    if (decl.contains("DATE") || decl.contains("TIME") ||
        name.compare("DT", Qt::CaseInsensitive) == 0)
        return ColKind::Date;
    if (decl.contains("INT")) return ColKind::Integer;
    if (decl.contains("CHAR") || decl.contains("CLOB") || decl.contains("TEXT"))
        return ColKind::Text;
    if (decl.isEmpty() || decl.contains("BLOB")) return ColKind::Other;
    return ColKind::Real;
}

struct Cell {
    union {
        double d;
        int64_t i;
        struct {
            uint32_t off;
            uint32_t len;
        } t;
    };
    uint8_t type = SQLITE_NULL;
};

struct Block {
    int start = 0;
    int count = 0;
    bool valid = false;
    int64_t changes = 0;
    Clock::time_point at;
    std::vector<Cell> cells;
    std::vector<char> text;
    std::vector<uint8_t> present;

    bool holds(int p) const { return valid && p >= start && p < start + count; }
};

[[noreturn]] void Fail(int number, const char* text) {
    throw DbError(number, QString::fromLatin1(text));
}
[[noreturn]] void NoCurrentRecord() {
    Fail(err::NoCurrentRecord, "No current record");
}
[[noreturn]] void ConversionError() {
    Fail(err::ConversionError, "Data type conversion error");
}

QString Quote(const QString& name) {
    return '"' + QString(name).replace('"', "\"\"") + '"';
}

std::optional<double> PlainNumber(const QString& s) {
    bool ok = false;
    const double d = s.trimmed().toDouble(&ok);
    if (!ok) return std::nullopt;
    return d;
}

// A value as the column keeps it.
Variant ToColumn(ColKind kind, const Variant& v) {
    if (v.isNull()) return v;
    using K = Variant::Kind;
    switch (kind) {
    case ColKind::Integer:
        if (v.kind() == K::Long) return v;
        if (v.kind() == K::Double) return static_cast<long long>(v.toInt64());
        if (v.kind() == K::Text) {
            const auto d = PlainNumber(v.toText());
            if (!d) ConversionError();
            return static_cast<long long>(Variant(*d).toInt64());
        }
        ConversionError();
    case ColKind::Real:
        if (v.kind() == K::Double) return v;
        if (v.kind() == K::Long) return v.toDouble();
        if (v.kind() == K::Text) {
            const auto d = PlainNumber(v.toText());
            if (!d) ConversionError();
            return *d;
        }
        ConversionError();
    case ColKind::Text:
        if (v.kind() == K::Date) return v.toIso();
        return v.toText();
    case ColKind::Date:
        if (v.kind() == K::Date) return v;
        if (v.kind() == K::Text) {
            try {
                return v.toDate();
            } catch (const DbError&) {
                ConversionError();
            }
        }
        ConversionError();
    case ColKind::Other:
        break;
    }
    return v;
}

void Bind(sqlite3_stmt* s, int i, const Variant& v) {
    using K = Variant::Kind;
    switch (v.kind()) {
    case K::Null:
        sqlite3_bind_null(s, i);
        break;
    case K::Double:
        sqlite3_bind_double(s, i, v.toDouble());
        break;
    case K::Long:
        sqlite3_bind_int64(s, i, v.toInt64());
        break;
    case K::Text: {
        const QByteArray u = v.toText().toUtf8();
        sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        break;
    }
    case K::Date: {
        const QByteArray u = v.toIso().toUtf8();
        sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        break;
    }
    }
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
    // The columns read so far: only these are fetched, so a pass that reads
    // five columns of a wide table costs what a five-column SELECT does.
    mutable std::vector<int> wanted;
    mutable std::vector<int> cellOf; // column -> place in a cached row, -1 if not fetched
    mutable std::unordered_map<const char*, int> byPointer;

    std::vector<int64_t> keys;
    int pos = -1;
    bool onDeleted = false;

    EditMode mode = EditMode::None;
    std::vector<std::optional<Variant>> buffer;

    mutable std::array<Block, 2> blocks;
    mutable int lastUsed = 0;
    int lastDir = 1;
    // The row the cursor arrived on: its block is checked for freshness once
    // per arrival, not once per field.
    mutable const Block* rowBlock = nullptr;
    mutable int rowPos = -1;

    mutable QString rangeSql;
    mutable QString listSql;
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
        wanted.clear();
        cellOf.assign(cols.size(), -1);
        fetchSql();
    }

    void fetchSql() const {
        QString list = "rowid";
        for (int c : wanted) list += ", " + Quote(cols[c].name);
        rangeSql = "SELECT " + list + " FROM " + table + " WHERE rowid BETWEEN ?1 AND ?2";
        QString marks;
        for (int i = 1; i <= kListBatch; ++i) marks += (i > 1 ? ",?" : "?") + QString::number(i);
        listSql = "SELECT " + list + " FROM " + table + " WHERE rowid IN (" + marks + ")";
    }

    // A column read for the first time joins the fetched ones; the rows
    // cached so far lack it and are read again.
    void want(int col) const {
        cellOf[col] = static_cast<int>(wanted.size());
        wanted.push_back(col);
        fetchSql();
        dropBlocks();
    }

    void readKeys() {
        keys.clear();
        dropBlocks();
        if (type == RecordsetType::Dynaset) {
            StatementUse q(c(), "SELECT rowid FROM " + table + (tail.isEmpty() ? "" : " " + tail));
            while (q.step()) keys.push_back(sqlite3_column_int64(q.get(), 0));
        }
        pos = keys.empty() ? -1 : 0;
        onDeleted = false;
        mode = EditMode::None;
    }

    void dropBlocks() const {
        for (Block& b : blocks) b.valid = false;
        rowBlock = nullptr;
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

    bool fresh(const Block& b) const {
        return b.valid && b.changes == conn->totalChanges() && Clock::now() - b.at < kFreshFor;
    }

    const Block& blockFor(int p) const {
        for (int i = 0; i < 2; ++i) {
            if (blocks[i].holds(p) && fresh(blocks[i])) {
                lastUsed = i;
                return blocks[i];
            }
        }
        // Size and direction from the block this read continues, if any.
        int size = kFirstBlock;
        int dir = lastDir;
        int victim = 1 - lastUsed;
        for (int i = 0; i < 2; ++i) {
            const Block& b = blocks[i];
            if (b.count == 0) continue;
            if (b.start + b.count == p) {
                dir = 1;
                size = std::min(kMaxBlock, b.count * 2);
                victim = i;
            } else if (b.start - 1 == p) {
                dir = -1;
                size = std::min(kMaxBlock, b.count * 2);
                victim = i;
            }
        }
        const int from = dir > 0 ? p : std::max(0, p - size + 1);
        const int to = dir > 0 ? std::min(n(), p + size) : p + 1;
        fill(blocks[victim], from, to);
        lastUsed = victim;
        return blocks[victim];
    }

    void store(Block& b, int slot, sqlite3_stmt* s) const {
        const int nc = static_cast<int>(wanted.size());
        Cell* row = &b.cells[static_cast<size_t>(slot) * nc];
        b.present[slot] = 1;
        for (int i = 0; i < nc; ++i) {
            Cell& cell = row[i];
            cell.type = static_cast<uint8_t>(sqlite3_column_type(s, i + 1));
            switch (cell.type) {
            case SQLITE_INTEGER:
                cell.i = sqlite3_column_int64(s, i + 1);
                break;
            case SQLITE_FLOAT:
                cell.d = sqlite3_column_double(s, i + 1);
                break;
            case SQLITE_TEXT:
            case SQLITE_BLOB: {
                const char* p = cell.type == SQLITE_TEXT
                                    ? reinterpret_cast<const char*>(sqlite3_column_text(s, i + 1))
                                    : static_cast<const char*>(sqlite3_column_blob(s, i + 1));
                const int len = sqlite3_column_bytes(s, i + 1);
                cell.t.off = static_cast<uint32_t>(b.text.size());
                cell.t.len = static_cast<uint32_t>(len);
                if (len > 0) b.text.insert(b.text.end(), p, p + len);
                cell.type = SQLITE_TEXT;
                break;
            }
            default:
                cell.type = SQLITE_NULL;
                break;
            }
        }
    }

    void fill(Block& b, int from, int to) const {
        const int count = to - from;
        const size_t nc = wanted.size();
        b.valid = false;
        b.start = from;
        b.count = count;
        b.cells.assign(static_cast<size_t>(count) * nc, Cell{});
        b.text.clear();
        b.present.assign(static_cast<size_t>(count), 0);

        const int64_t* k = keys.data() + from;
        int64_t lo = k[0], hi = k[0];
        bool run = true;
        for (int i = 1; i < count; ++i) {
            lo = std::min(lo, k[i]);
            hi = std::max(hi, k[i]);
            if (k[i] != k[0] + i) run = false;
        }
        std::unordered_map<int64_t, int> slotOf;
        if (!run) {
            slotOf.reserve(static_cast<size_t>(count) * 2);
            for (int i = 0; i < count; ++i) slotOf.emplace(k[i], i);
        }
        auto slot = [&](int64_t rowid) -> int {
            if (run)
                return rowid >= k[0] && rowid < k[0] + count ? static_cast<int>(rowid - k[0]) : -1;
            auto it = slotOf.find(rowid);
            return it == slotOf.end() ? -1 : it->second;
        };

        if (run || hi - lo + 1 <= 2 * static_cast<int64_t>(count) + 16) {
            StatementUse q(c(), rangeSql);
            sqlite3_bind_int64(q.get(), 1, lo);
            sqlite3_bind_int64(q.get(), 2, hi);
            while (q.step()) {
                const int i = slot(sqlite3_column_int64(q.get(), 0));
                if (i >= 0) store(b, i, q.get());
            }
        } else {
            for (int first = 0; first < count; first += kListBatch) {
                StatementUse q(c(), listSql);
                for (int j = 0; j < kListBatch; ++j)
                    sqlite3_bind_int64(q.get(), j + 1, k[std::min(first + j, count - 1)]);
                while (q.step()) {
                    const int i = slot(sqlite3_column_int64(q.get(), 0));
                    if (i >= 0) store(b, i, q.get());
                }
            }
        }
        b.changes = conn->totalChanges();
        b.at = Clock::now();
        b.valid = true;
    }

    Variant fromCell(const Block& b, const Cell& cell, int col) const {
        switch (cell.type) {
        case SQLITE_INTEGER:
            return static_cast<long long>(cell.i);
        case SQLITE_FLOAT:
            return cell.d;
        case SQLITE_TEXT: {
            const QString s = QString::fromUtf8(b.text.data() + cell.t.off, cell.t.len);
            if (cols[col].kind == ColKind::Date) return Variant::FromIso(s);
            return s;
        }
        default:
            return {};
        }
    }

    Variant read(int col) const {
        requireCurrent();
        if (mode != EditMode::None) {
            if (buffer[col]) return *buffer[col];
            if (mode == EditMode::Add) return {};
        }
        if (cellOf[col] < 0) want(col);
        if (!rowBlock || rowPos != pos || !rowBlock->holds(pos) ||
            rowBlock->changes != conn->totalChanges()) {
            rowBlock = &blockFor(pos);
            rowPos = pos;
        }
        const Block& b = *rowBlock;
        const int slot = pos - b.start;
        if (!b.present[slot]) Fail(err::RecordDeleted, "Record is deleted");
        return fromCell(b, b.cells[static_cast<size_t>(slot) * wanted.size() + cellOf[col]], col);
    }

    // Our own change to a cached row goes into the cache too, so the
    // read-ahead of a pass that edits as it goes (the lag engine, the
    // re-index) stays valid.
    void patchCache(int64_t before) {
        const int64_t after = conn->totalChanges();
        for (Block& b : blocks) {
            if (!b.valid) continue;
            if (b.changes != before) {
                b.valid = false;
                continue;
            }
            b.changes = after;
            if (!b.holds(pos) || !b.present[pos - b.start]) continue;
            Cell* row = &b.cells[static_cast<size_t>(pos - b.start) * wanted.size()];
            for (size_t i = 0; i < cols.size(); ++i) {
                if (!buffer[i] || cellOf[i] < 0) continue;
                const Variant& v = *buffer[i];
                Cell& cell = row[cellOf[i]];
                switch (v.kind()) {
                case Variant::Kind::Null:
                    cell.type = SQLITE_NULL;
                    break;
                case Variant::Kind::Long:
                    cell.type = SQLITE_INTEGER;
                    cell.i = v.toInt64();
                    break;
                case Variant::Kind::Double:
                    cell.type = SQLITE_FLOAT;
                    cell.d = v.toDouble();
                    break;
                case Variant::Kind::Text:
                case Variant::Kind::Date: {
                    const QByteArray u =
                        (v.kind() == Variant::Kind::Date ? v.toIso() : v.toText()).toUtf8();
                    cell.type = SQLITE_TEXT;
                    cell.t.off = static_cast<uint32_t>(b.text.size());
                    cell.t.len = static_cast<uint32_t>(u.size());
                    b.text.insert(b.text.end(), u.constData(), u.constData() + u.size());
                    break;
                }
                }
            }
        }
    }

    void cancelEdit() {
        mode = EditMode::None;
        std::fill(buffer.begin(), buffer.end(), std::nullopt);
    }

    void moved(int dir) {
        cancelEdit();
        onDeleted = false;
        lastDir = dir;
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
    d.dropBlocks();
    d.pos = 0;
}

void Recordset::MoveLast() {
    Impl& d = impl();
    if (d.keys.empty()) NoCurrentRecord();
    d.moved(-1);
    d.dropBlocks();
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
        for (Block& b : d.blocks)
            if (b.valid && b.changes == before) b.changes = c.totalChanges();
    } else if (!set.empty()) {
        d.requireCurrent();
        StatementUse q(c, d.writeSql(EditMode::Edit, set));
        for (size_t i = 0; i < set.size(); ++i)
            Bind(q.get(), static_cast<int>(i + 1), *d.buffer[set[i]]);
        sqlite3_bind_int64(q.get(), static_cast<int>(set.size() + 1), d.keys[d.pos]);
        q.step();
        d.patchCache(before);
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
    d.dropBlocks();
    d.onDeleted = true;
}

void Recordset::Close() {
    if (!d_) return;
    d_->dropBlocks();
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

} // namespace store
