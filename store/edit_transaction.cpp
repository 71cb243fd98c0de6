#include "store/edit_transaction.h"

#include "store/record_writer.h"
#include "workstation/workstation.h"

namespace store {

EditTransaction::EditTransaction(Workstation& ws, const db::Database& db)
    : ws_(ws), db_(db), trans_(std::in_place, db), pulse_(ws) {
    ws_.db.writesHeld = true;
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
