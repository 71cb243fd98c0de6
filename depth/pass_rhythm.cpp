#include "depth/pass_rhythm.h"

#include "workstation/workstation.h"

namespace depth {

namespace {
constexpr qint64 kBatchMs = 250;
// The intake tick runs every 200 ms: a yield every 20 ms keeps it on time
// while the pass spends its time on the pass.
constexpr qint64 kYieldMs = 20;
} // namespace

PassRhythm::PassRhythm(Workstation& ws, db::Database db, int batchRecords)
    : db_(std::move(db)), pulse_(ws, kYieldMs), batchRecords_(batchRecords) {
    // A pass writes only what it works out from other columns (lag depth,
    // rates, the stroke count), and the next pass writes it again. So its
    // own connection does not flush the log at every commit, which would be
    // most of a whole-file pass; a power cut may take the last batches with
    // it. The live writer's connection keeps its full flush.
    db_.Execute("PRAGMA synchronous = NORMAL");
}

PassRhythm::~PassRhythm() {
    if (!open_) return;
    try {
        open_->Commit();
    } catch (...) {
        // The pass has already reported its own failure; a batch that cannot
        // be committed either is rolled back when the file is closed.
    }
}

void PassRhythm::beginWrite() {
    if (open_) return;
    open_.emplace(db_);
    batch_ = 0;
    batchAge_.start();
}

void PassRhythm::endWrite() {
    ++batch_;
    if (batch_ >= batchRecords_ || batchAge_.elapsed() >= kBatchMs) commit();
}

void PassRhythm::commit() {
    if (!open_) return;
    // The guard goes whether or not the commit went through.
    try {
        open_->Commit();
    } catch (...) {
        open_.reset();
        throw;
    }
    open_.reset();
    ++commits_;
}

void PassRhythm::yield() {
    if (pulse_.due()) yieldNow();
}

void PassRhythm::yieldNow() {
    commit();
    pulse_.beatNow();
    ++yields_;
}

} // namespace depth
