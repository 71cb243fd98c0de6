#include "store/edit_transaction.h"

#include "db/checkpoint.h"
#include "store/record_writer.h"
#include "workstation/workstation.h"

namespace store {

namespace {
// How often the log written so far goes to the disk during a long edit.
constexpr qint64 kFlushEveryMs = 200;
} // namespace

EditTransaction::EditTransaction(Workstation& ws, const db::Database& db)
    : ws_(ws), db_(db), trans_(std::in_place, db), pulse_(ws) {
    ws_.db.writesHeld = true;
    flushed_.start();
}

void EditTransaction::beat() {
    pulse_.beat();
    if (flushed_.elapsed() < kFlushEveryMs) return;
    db::checkpoint::FlushAhead(db_.Name());
    flushed_.restart();
}

EditTransaction::~EditTransaction() {
    // The rollback comes before the held rows, which need the lock; a
    // commit that failed may have left the transaction open as well.
    trans_.reset();
    try {
        if (db_.isOpen() && db_.TransactionLevel() > 0) db_.Rollback();
    } catch (const std::exception&) {
        // The connection is past saving; the writer's rows go through its own.
    }
    end();
}

void EditTransaction::commit() {
    trans_->Commit();
    trans_.reset();
    end();
}

void EditTransaction::end() {
    if (!ws_.db.writesHeld) return;
    ws_.db.writesHeld = false;
    WriteHeldRows(ws_);
}

} // namespace store
