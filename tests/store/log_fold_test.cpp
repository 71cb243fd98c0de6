// The job's write-ahead log is folded back into the file by a worker of its
// own, not inside the commit that made it long; a fold under way ends before
// the file is closed and moved, so the move keeps every row.
#include "db/checkpoint.h"
#include "station.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using storetest::RawDb;

TEST(LogFold, ALongLogIsFoldedByTheWorkerAndAMovedFileKeepsEveryRow) {
    testkit::ProgramFolder folder;
    const QString job = folder.file("FOLD.DB");
    const QString moved = folder.file("MOVED.DB");
    {
        db::Database db = db::OpenDatabase(job, db::OpenMode::Create);
        db.Execute("CREATE TABLE t (x BLOB)");
        // About 3,000 pages in one commit, three times the length that asks
        // for a fold.
        db.Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
                   "INSERT INTO t SELECT randomblob(4000) FROM n");
        // Only the log holds the rows until they are folded in; the worker
        // does it while this connection stays open.
        db::checkpoint::WaitIdle();
        EXPECT_GT(QFileInfo(job).size(), 12'000'000);

        // A second long commit, then the file is put away at once: whatever
        // the worker has under way ends before the close that folds the rest.
        db.Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
                   "INSERT INTO t SELECT randomblob(4000) FROM n");
        ASSERT_TRUE(db::PutJobFileInPlace(job, moved));
    }
    RawDb raw(moved);
    EXPECT_EQ(raw.integrity(), "ok");
    EXPECT_EQ(raw.number("SELECT count(*) FROM t"), 6000);
}
