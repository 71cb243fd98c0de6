#pragma once
// One edit of the job that must be done whole or not at all, and may still
// run long (a restore or a renumbering of a million records): its
// transaction on the shared connection, inside which the event loop is let
// run now and then so the screen and the link keep going.
//
// That is safe only because nothing else writes while it is open. Every
// other job of the shared connection finds Gdb_busy up (the edit runs under
// it) and stands back; the record writer, which ignores Gdb_busy, finds
// writesHeld up and keeps its rows instead of writing them into the edit's
// transaction (where a rollback or a kill would take them along) or waiting
// on its lock. The held rows are written, in order, as soon as the edit has
// ended either way.

#include "db/database.h"
#include "workstation/events.h"

#include <QElapsedTimer>
#include <optional>

class Workstation;

namespace store {

class EditTransaction {
  public:
    // Begins the transaction (it takes the write lock at once); throws as
    // BeginTrans does, and then holds nothing back.
    EditTransaction(Workstation& ws, const db::Database& db);
    // Rolls back unless committed; then writes the held rows.
    ~EditTransaction();
    EditTransaction(const EditTransaction&) = delete;
    EditTransaction& operator=(const EditTransaction&) = delete;

    // Between two steps of the edit: lets the loop run when it has waited
    // long enough, and now and then has what the edit wrote so far flushed
    // to the disk beside it, so the commit finds little left to flush.
    // Asking costs two clock reads.
    void beat();
    // Commits; a failure throws and leaves the rest to the destructor.
    void commit();

  private:
    void end();

    Workstation& ws_;
    db::Database db_;
    std::optional<db::Transaction> trans_;
    station::Pulse pulse_;
    QElapsedTimer flushed_;
};

} // namespace store
