#pragma once
// The rhythm of a long pass over the job: its writes go in batches, and it
// lets the event loop run where the program yields.
//
// Why batches: each record stands on its own (a pass that fails keeps every
// record written before the failure, nothing is undone), but one commit per
// record costs a flush of the log per record, which on a whole file is most
// of the pass. So records are committed in batches of at most 1000 records or
// 250 ms, whichever comes first, and a failure commits the batch written so
// far instead of rolling it back: the outcome is the same as one transaction
// per record.
//
// Why the batch is committed before each yield: the live record writer runs
// inside the yield (the parser is a timer tick) on its own connection, in
// this same thread. If the pass held the file's write lock across the yield,
// the writer would wait on a lock that cannot be released until it returns.
// Committing first means the writer never finds the lock taken, and between
// two yields the pass holds it for at most one batch. (An edit that must be
// all or nothing can't commit half way; it holds the writer back instead,
// see store/edit_transaction.h.)

#include "db/database.h"
#include "workstation/events.h"

#include <QElapsedTimer>
#include <optional>

class Workstation;

namespace depth {

class PassRhythm {
  public:
    // db: the pass's own connection. batchRecords: the most records one
    // batch may hold (1000 unless a job keeps smaller batches of its own).
    PassRhythm(Workstation& ws, db::Database db, int batchRecords = 1000);
    // Keeps what was written: an open batch is committed, and a failure to do
    // so is left to the file's own recovery.
    ~PassRhythm();
    PassRhythm(const PassRhythm&) = delete;
    PassRhythm& operator=(const PassRhythm&) = delete;

    // Before a record is edited: the batch's transaction is opened if none is.
    void beginWrite();
    // After its Update: the batch is committed once it is full or old.
    void endWrite();
    // A place where the pass lets the event loop run. A place reached within
    // a few milliseconds of the last one passes on at once: nothing that
    // needs the loop can have come in that time.
    void yield();
    // Lets the event loop run now, whatever the time since the last yield.
    void yieldNow();
    // Commits the open batch, if any.
    void commit();

    int commits() const { return commits_; }
    int yields() const { return yields_; }

  private:
    db::Database db_;
    station::Pulse pulse_;
    int batchRecords_;
    std::optional<db::Transaction> open_;
    int batch_ = 0;
    int commits_ = 0;
    int yields_ = 0;
    QElapsedTimer batchAge_;
};

} // namespace depth
