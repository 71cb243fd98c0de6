#pragma once
// The read-ahead of a recordset. Rows of the keyset are read in blocks, and
// only the columns read so far: a pass that reads five columns of a wide
// table costs what a five-column SELECT does, and one statement (and one
// read lock, the dear part of a statement in WAL mode) serves many rows.
// Inside the database layer only.

#include "db/columns.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

struct sqlite3_stmt;

namespace db {

class Connection;

class RowCache {
  public:
    // The table (as SQL text) and its columns, after each describe; forgets
    // every row and column read.
    void reset(const QString& table, const std::vector<Column>& cols);
    // Column `col` of the row at `pos` in `keys`; "Record is deleted" when
    // the row has gone from the table.
    Variant read(Connection& c, const std::vector<int64_t>& keys, int pos, int col);
    void drop();
    // The direction of the cursor's last move: the next block is read on in it.
    void setDirection(int dir) { lastDir_ = dir; }
    // A row was added through the connection: it is not in the keyset, so
    // the rows read stay as they are.
    void keepAfterAdd(int64_t changesBefore, int64_t changesAfter);
    // Our own edit of the row at `pos` goes into the cache too, so the
    // read-ahead of a pass that edits as it goes (the lag engine, the
    // re-index) stays valid.
    void patch(int64_t changesBefore, int64_t changesAfter, int pos,
               const std::vector<std::optional<Variant>>& values);

  private:
    using Clock = std::chrono::steady_clock;

    struct Cell {
        union {
            double d;
            int64_t i;
            struct {
                uint32_t off;
                uint32_t len;
            } t;
        };
        uint8_t type = 0;
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

    void want(int col);
    void fetchSql();
    bool fresh(const Block& b, int64_t changes) const;
    const Block& blockFor(Connection& c, const std::vector<int64_t>& keys, int p);
    void fill(Connection& c, const std::vector<int64_t>& keys, Block& b, int from, int to);
    void store(Block& b, int slot, sqlite3_stmt* s) const;
    Variant fromCell(const Block& b, const Cell& cell, int col) const;

    QString table_;
    const std::vector<Column>* cols_ = nullptr;
    std::vector<int> wanted_;
    std::vector<int> cellOf_; // column -> place in a cached row, -1 if not fetched
    QString rangeSql_;
    QString listSql_;
    std::array<Block, 2> blocks_;
    int lastUsed_ = 0;
    int lastDir_ = 1;
    // The row the cursor arrived on: its block is checked for freshness once
    // per arrival, not once per field.
    const Block* rowBlock_ = nullptr;
    int rowPos_ = -1;
};

} // namespace db
