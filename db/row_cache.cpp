#include "db/row_cache.h"

#include "db/connection.h"
#include "db/db_error.h"

#include <sqlite3.h>

#include <unordered_map>

namespace db {

namespace {

// How long rows read ahead stand for the file. Another connection's change
// to a row of the keyset shows at the latest this much later, and a move to
// the first or last record shows it at once. Checking the file on every
// move instead would cost a read lock a row, several times the row itself.
constexpr auto kFreshFor = std::chrono::milliseconds(800);
// Read-ahead grows while a pass goes on in one direction: a jump reads a few
// rows, a long pass reads big blocks.
constexpr int kFirstBlock = 32;
constexpr int kMaxBlock = 1024;
// Rows of a block that are far apart in the table are read by row id lists.
constexpr int kListBatch = 64;

} // namespace

void RowCache::reset(const QString& table, const std::vector<Column>& cols) {
    table_ = table;
    cols_ = &cols;
    wanted_.clear();
    cellOf_.assign(cols.size(), -1);
    fetchSql();
    drop();
}

void RowCache::fetchSql() {
    QString list = "rowid";
    for (int c : wanted_) list += ", " + Quote((*cols_)[c].name);
    rangeSql_ = "SELECT " + list + " FROM " + table_ + " WHERE rowid BETWEEN ?1 AND ?2";
    QString marks;
    for (int i = 1; i <= kListBatch; ++i) marks += (i > 1 ? ",?" : "?") + QString::number(i);
    listSql_ = "SELECT " + list + " FROM " + table_ + " WHERE rowid IN (" + marks + ")";
}

// A column read for the first time joins the fetched ones; the rows cached
// so far lack it and are read again.
void RowCache::want(int col) {
    cellOf_[col] = static_cast<int>(wanted_.size());
    wanted_.push_back(col);
    fetchSql();
    drop();
}

void RowCache::drop() {
    for (Block& b : blocks_) b.valid = false;
    rowBlock_ = nullptr;
}

bool RowCache::fresh(const Block& b, int64_t changes) const {
    return b.valid && b.changes == changes && Clock::now() - b.at < kFreshFor;
}

Variant RowCache::read(Connection& c, const std::vector<int64_t>& keys, int pos, int col) {
    if (cellOf_[col] < 0) want(col);
    if (!rowBlock_ || rowPos_ != pos || !rowBlock_->holds(pos) ||
        rowBlock_->changes != c.totalChanges()) {
        rowBlock_ = &blockFor(c, keys, pos);
        rowPos_ = pos;
    }
    const Block& b = *rowBlock_;
    const int slot = pos - b.start;
    if (!b.present[slot]) Fail(err::RecordDeleted, "Record is deleted");
    return fromCell(b, b.cells[static_cast<size_t>(slot) * wanted_.size() + cellOf_[col]], col);
}

const RowCache::Block& RowCache::blockFor(Connection& c, const std::vector<int64_t>& keys, int p) {
    const int64_t changes = c.totalChanges();
    for (int i = 0; i < 2; ++i) {
        if (blocks_[i].holds(p) && fresh(blocks_[i], changes)) {
            lastUsed_ = i;
            return blocks_[i];
        }
    }
    // Size and direction from the block this read continues, if any.
    int size = kFirstBlock;
    int dir = lastDir_;
    int victim = 1 - lastUsed_;
    for (int i = 0; i < 2; ++i) {
        const Block& b = blocks_[i];
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
    const int n = static_cast<int>(keys.size());
    const int from = dir > 0 ? p : std::max(0, p - size + 1);
    const int to = dir > 0 ? std::min(n, p + size) : p + 1;
    fill(c, keys, blocks_[victim], from, to);
    lastUsed_ = victim;
    return blocks_[victim];
}

void RowCache::store(Block& b, int slot, sqlite3_stmt* s) const {
    const int nc = static_cast<int>(wanted_.size());
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

void RowCache::fill(Connection& c, const std::vector<int64_t>& keys, Block& b, int from, int to) {
    const int count = to - from;
    const size_t nc = wanted_.size();
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
        if (run) return rowid >= k[0] && rowid < k[0] + count ? static_cast<int>(rowid - k[0]) : -1;
        auto it = slotOf.find(rowid);
        return it == slotOf.end() ? -1 : it->second;
    };

    if (run || hi - lo + 1 <= 2 * static_cast<int64_t>(count) + 16) {
        StatementUse q(c, rangeSql_);
        sqlite3_bind_int64(q.get(), 1, lo);
        sqlite3_bind_int64(q.get(), 2, hi);
        while (q.step()) {
            const int i = slot(sqlite3_column_int64(q.get(), 0));
            if (i >= 0) store(b, i, q.get());
        }
    } else {
        for (int first = 0; first < count; first += kListBatch) {
            StatementUse q(c, listSql_);
            for (int j = 0; j < kListBatch; ++j)
                sqlite3_bind_int64(q.get(), j + 1, k[std::min(first + j, count - 1)]);
            while (q.step()) {
                const int i = slot(sqlite3_column_int64(q.get(), 0));
                if (i >= 0) store(b, i, q.get());
            }
        }
    }
    b.changes = c.totalChanges();
    b.at = Clock::now();
    b.valid = true;
}

Variant RowCache::fromCell(const Block& b, const Cell& cell, int col) const {
    switch (cell.type) {
    case SQLITE_INTEGER:
        return static_cast<long long>(cell.i);
    case SQLITE_FLOAT:
        return cell.d;
    case SQLITE_TEXT: {
        const QString s = QString::fromUtf8(b.text.data() + cell.t.off, cell.t.len);
        if ((*cols_)[col].kind == ColKind::Date) return Variant::FromIso(s);
        return s;
    }
    default:
        return {};
    }
}

void RowCache::keepAfterAdd(int64_t changesBefore, int64_t changesAfter) {
    for (Block& b : blocks_)
        if (b.valid && b.changes == changesBefore) b.changes = changesAfter;
}

void RowCache::patch(int64_t changesBefore, int64_t changesAfter, int pos,
                     const std::vector<std::optional<Variant>>& values) {
    for (Block& b : blocks_) {
        if (!b.valid) continue;
        if (b.changes != changesBefore) {
            b.valid = false;
            continue;
        }
        b.changes = changesAfter;
        if (!b.holds(pos) || !b.present[pos - b.start]) continue;
        Cell* row = &b.cells[static_cast<size_t>(pos - b.start) * wanted_.size()];
        for (size_t i = 0; i < values.size(); ++i) {
            if (!values[i] || cellOf_[i] < 0) continue;
            const Variant& v = *values[i];
            Cell& cell = row[cellOf_[i]];
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

} // namespace db
