#pragma once
// A keyset cursor over one table: what a dynaset is. On open it reads the row
// ids of the query in its order (for the record table, PACKET_NUM order), so
// AbsolutePosition is the index in that list and a move is an index step. A
// field read fetches the current row by its row id; on long passes rows are
// read ahead in blocks, so a full scan costs about what one SELECT does.
//
// Rows added after the open are not in the keyset, not even those this
// recordset adds. Changes made by another connection to rows of the keyset
// are seen: read-ahead rows are kept for a short while only (below a second)
// and MoveFirst, MoveLast and Requery always read afresh.
//
// Beginning and end of the set are Bof() and Eof(): the upper-case name of the
// end is a macro of the C library.

#include "db/connection.h"
#include "db/database.h"
#include "db/variant.h"

#include <QString>
#include <cstdint>
#include <memory>

namespace db {

class Recordset {
  public:
    enum class EditMode { None, Edit, Add };

    Recordset() = default;
    // Opens `sql` ("SELECT * FROM table [WHERE ...] [ORDER BY ...]", or a list
    // of columns instead of *) on a connection; throws DbError.
    Recordset(const std::shared_ptr<Connection>& c, const QString& sql, RecordsetType type);

    bool isOpen() const;
    bool Bof() const;
    bool Eof() const;
    int32_t RecordCount() const;
    // 0 for the first record of the keyset; -1 at Bof or Eof.
    int32_t AbsolutePosition() const;
    // Out of 0 .. RecordCount - 1 is "Invalid argument" (3001).
    void SetAbsolutePosition(int32_t position);

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    // Reads the keyset again: new rows join, the position goes to the first.
    void Requery();

    // The value of a field of the current record (of the edit buffer during
    // AddNew and Edit). An unknown name is "Item not found in this
    // collection" (3265); no current record is 3021.
    Variant Fields(const char* name) const;
    Variant Fields(const QString& name) const;
    Variant Fields(int index) const;
    int FieldIndex(const QString& name) const; // -1 when there is none
    int FieldCount() const;
    QString FieldName(int index) const;

    // Sets a field of the edit buffer, converted to the column's type as the
    // file keeps it; text that is no number for a number column is "Data type
    // conversion error" (3421), here and not at Update.
    void SetField(const char* name, const Variant& value);
    void SetField(const QString& name, const Variant& value);
    void SetField(int index, const Variant& value);

    void AddNew();
    void Edit();
    // Writes the edit buffer: an INSERT for AddNew, an UPDATE of the current
    // row for Edit. A duplicate of a unique key is 3022.
    void Update();
    void CancelUpdate();
    EditMode editMode() const;
    // Deletes the current row; it stays current (and unreadable, 3167) until
    // the next move, and MoveNext then goes to the row after it.
    void Delete();

    void Close();
    Database Parent() const;
    // The row id of the current record.
    int64_t RowId() const;

  private:
    struct Impl;
    Impl& impl() const;
    std::shared_ptr<Impl> d_;
};

} // namespace db
