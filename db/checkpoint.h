#pragma once
// The slow disk work of a job's write-ahead log, on a thread of its own.
//
// SQLite folds the log back into the file by itself inside the commit that
// makes it long. After an edit of a whole job that commit copies a few
// hundred megabytes while the screen and the instrument link wait for
// seconds. Here the commit only asks; a worker with its own connection does
// the copy while the log goes on taking new commits.
//
// Likewise the commit of a long edit flushes the whole log to the disk, all
// that the edit wrote: the worker flushes it bit by bit while the edit runs,
// so the commit finds little left to wait for.

#include <QString>

namespace db::checkpoint {

// A commit leaves this many pages in the log or more: time to fold it.
constexpr int kFoldAtPages = 1000;

// Asks for the log of the file at `path` to be folded in. Asks made while one
// for the same file still waits count once.
void Request(const QString& path);
// Asks for what the log of the file at `path` holds so far to be flushed to
// the disk (not folded; a commit still decides what counts).
void FlushAhead(const QString& path);
// Drops what was asked for the file and waits for a fold of it under way to
// end: before its connections close for good and its log is removed, so the
// last close is the one that folds what is left.
void Settle(const QString& path);
// Waits until nothing is asked or under way.
void WaitIdle();

} // namespace db::checkpoint
