// Live packets go on arriving while the long jobs let the event loop run:
// whatever becomes of the job, every packet that arrived is in the file
// once, after the job's own writes, in the order it came.
#include "job_fixture.h"

#include "depth/geo_edit.h"
#include "store/lifecycle.h"

#include <QTimer>
#include <functional>

using depthtest::JobTest;

namespace {

class PacketsDuringJobs : public JobTest {
  protected:
    // n records with wrong IDs (the bulk rows carry their packet number),
    // strokes rising 10 a record, depth 0.1 ft a record.
    void fill(int n) { bulk(n, "1000 + i * 0.1", "1", "1000 + 10 * i"); }

    // Runs the job while a packet is saved at every turn of the event loop,
    // checks that each of them is kept, and gives how many came while an
    // edit held the writer back.
    int feedWhile(const std::function<void()>& run) {
        const QString firstLive = QString::number(packet);
        const long long before = testkit::RawDb(job).rows();
        int sent = 0, held = 0;
        QTimer timer;
        timer.setInterval(0);
        QObject::connect(&timer, &QTimer::timeout, [&] {
            held += ws.db.writesHeld ? 1 : 0;
            save({.depth = 2000});
            ++sent;
        });
        timer.start();
        run();
        timer.stop();

        EXPECT_GT(sent, 0) << "no packet arrived while the job ran";
        EXPECT_EQ(logged("DB Write Err"), 0);
        EXPECT_EQ(ws.loop.yieldsHoldingWriteLock, 0);
        testkit::RawDb raw(job);
        EXPECT_EQ(raw.rows(), before + sent);
        // Each live packet once (the packet number is unique), stored in the
        // order it came: row id and packet number rise together.
        EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE PACKET_NUM >= " + firstLive),
                  sent);
        EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 a JOIN OMBRI_DB_010 b ON b.rowid "
                             "= a.rowid + 1 WHERE a.PACKET_NUM >= " +
                             firstLive + " AND b.PACKET_NUM <> a.PACKET_NUM + 1"),
                  0);
        return held;
    }
};

TEST_F(PacketsDuringJobs, AReindexThatFailsMidwayKeepsEveryPacketThatArrived) {
    fill(6000);
    // The re-index commits every thousand records and lets the loop run
    // between; it fails on the 4500th.
    failUpdateOf("ID", 1000 + 4500);
    QString path = job;
    feedWhile([&] { store::VerifyDatabase(ws, path); });
    EXPECT_EQ(logged("Open DB Err: "), 1);
    // What the re-index committed before the failure stands, and nothing
    // after it (the bulk rows came with ID 1001 on).
    EXPECT_LT(at("ID", 3999), 5000);
    EXPECT_EQ(at("ID", 5999), 7000);
}

TEST_F(PacketsDuringJobs, ALagPassThatFailsMidwayKeepsEveryPacketAndItsCommittedBatches) {
    fill(40000);
    // The pass walks from the newest record back (to about the 5000th,
    // where the gas of the first record comes up); it fails half way.
    failUpdateOf("LAG_GU", 1000 + 20001);
    feedWhile([&] { strokesPass("1000"); });
    EXPECT_EQ(logged("Recalculate Lag Err: "), 1) << "the pass did not reach the failure";
    EXPECT_FALSE(ws.db.Gdb_busy);
    // The batches written before the failure are kept: newer records than
    // the failing one have their lag depth.
    EXPECT_TRUE(at("LAG_GU", 20001).has_value());
    EXPECT_FALSE(at("LAG_GU", 20000).has_value());
}

TEST_F(PacketsDuringJobs, ARestoreAllThatFailsOrCommitsStoresEveryPacketAfterItOnceInOrder) {
    const int n = 40000;
    fill(n);
    exec("UPDATE OMBRI_DB_010 SET DEPTH_RAW = DEPTH - 500");
    // The restore's write of the 30,000th record fails the first time.
    failUpdateOf("DEPTH", 1001 + 30000);
    for (const long long restored : {0, n}) {
        SCOPED_TRACE(restored);
        dialogs.answers.push_back(platform::Answer::Yes);
        EXPECT_GT(feedWhile([&] { depth::cmd_restore_all_geo_Click(ws); }), 0)
            << "the loop never ran inside the edit";
        EXPECT_EQ(
            testkit::RawDb(job).number(
                "SELECT count(*) FROM OMBRI_DB_010 WHERE DEPTH = DEPTH_RAW AND PACKET_NUM < " +
                QString::number(1001 + n)),
            restored);
        exec("DROP TRIGGER IF EXISTS stop_job");
    }
    EXPECT_EQ(logged("Restore All Err: "), 1);
}

} // namespace
