// Live packets go on arriving while the long jobs run (they let the event
// loop run between batches): whatever becomes of the job, every packet that
// arrived is in the file.
#include "job_fixture.h"

#include "store/lifecycle.h"

#include <QTimer>

using depthtest::At;
using depthtest::JobTest;
using depthtest::Packet;
using depthtest::RowAt;

namespace {

// Saves a packet at every turn of the event loop while it runs.
class Feeder {
  public:
    explicit Feeder(std::function<void()> save) {
        timer_.setInterval(0);
        QObject::connect(&timer_, &QTimer::timeout, [this, save] {
            save();
            ++sent;
        });
        timer_.start();
    }
    ~Feeder() { timer_.stop(); }
    int sent = 0;

  private:
    QTimer timer_;
};

} // namespace

class PacketsDuringJobs : public JobTest {
  protected:
    // n records with wrong IDs (the bulk rows carry their packet number),
    // strokes rising 10 a record, depth 0.1 ft a record.
    void fill(int n) {
        std::vector<depthtest::Row> rows;
        for (int i = 0; i < n; ++i) rows.push_back(RowAt(1000 + i * 0.1).count(1000 + 10.0 * i));
        bulk(rows);
    }
    // The job's write of one record fails from now on.
    void failUpdateOf(const char* column, long packetNum) {
        exec(QString("CREATE TRIGGER stop_job BEFORE UPDATE OF %1 ON OMBRI_DB_010 "
                     "WHEN OLD.PACKET_NUM = %2 BEGIN SELECT RAISE(ABORT, 'stopped'); END")
                 .arg(column)
                 .arg(packetNum));
    }
    void expectEveryPacketKept(int before, int sent, long firstLive) {
        EXPECT_GT(sent, 0) << "no packet arrived while the job ran";
        EXPECT_EQ(logged("DB Write Err"), 0);
        // Each live packet number is there once.
        const auto packets = column("PACKET_NUM");
        EXPECT_EQ(packets.size(), size_t(before + sent));
        for (long n = firstLive; n < firstLive + sent; ++n)
            EXPECT_EQ(std::count_if(packets.begin(), packets.end(),
                                    [n](const db::Variant& v) { return v.toInt64() == n; }),
                      1)
                << n;
        EXPECT_EQ(ws.loop.yieldsHoldingWriteLock, 0);
    }
};

TEST_F(PacketsDuringJobs, AReindexThatFailsMidwayKeepsEveryPacketThatArrived) {
    const int n = 6000;
    fill(n);
    const long firstLive = packet;
    // The re-index commits every thousand records and lets the loop run
    // between; it fails on the 4500th.
    failUpdateOf("ID", 1000 + 4500);
    QString path = this->path;
    int sent = 0;
    {
        Feeder feed([this] { save(At(2000)); });
        store::VerifyDatabase(ws, path);
        sent = feed.sent;
    }
    expectEveryPacketKept(n, sent, firstLive);
    EXPECT_EQ(logged("Open DB Err: "), 1);
    // What the re-index committed before the failure stands, and nothing
    // after it (the bulk rows came with ID 1001 on).
    EXPECT_LT(at("ID", 3999), 5000);
    EXPECT_EQ(at("ID", 5999), 7000);
}

TEST_F(PacketsDuringJobs, ALagPassThatFailsMidwayKeepsEveryPacketAndItsCommittedBatches) {
    const int n = 40000;
    fill(n);
    const long firstLive = packet;
    // The pass walks from the newest record back (to about the 5000th,
    // where the gas of the first record comes up); it fails half way.
    failUpdateOf("LAG_GU", 1000 + 20001);
    {
        Feeder feed([this] { save(At(2000)); });
        strokesPass("1000");
        expectEveryPacketKept(n, feed.sent, firstLive);
    }
    EXPECT_EQ(logged("Recalculate Lag Err: "), 1) << "the pass did not reach the failure";
    EXPECT_FALSE(ws.db.Gdb_busy);
    // The batches written before the failure are kept: newer records than
    // the failing one have their lag depth.
    EXPECT_TRUE(at("LAG_GU", 20001).has_value());
    EXPECT_FALSE(at("LAG_GU", 20000).has_value());
}

TEST_F(PacketsDuringJobs, TheStrokeRepairPassesOverARowItCannotWriteAndStillReports) {
    ws.depth.Gtotal_strokes = 0;
    for (int i = 0; i < 20; ++i) save(Packet().pumps(100));
    exec("UPDATE OMBRI_DB_010 SET TOTAL_STROKES = 5");
    failUpdateOf("TOTAL_STROKES", 1010);
    depth::Fix_total_strokes(ws);
    const auto total = column("TOTAL_STROKES");
    // 5 + 10 a record; the refused row keeps its old count, and the rows
    // after it are rebuilt all the same.
    for (int i = 0; i < 20; ++i) EXPECT_EQ(num(total[i]), i == 9 ? 5 : 5 + 10 * (i + 1)) << i;
    EXPECT_EQ(logged("Total Strokes Fixed"), 1);
    EXPECT_FALSE(ws.db.Gdb_busy);

    // An empty job: nothing to go through, and still the message.
    exec("DELETE FROM OMBRI_DB_010");
    depth::Fix_total_strokes(ws);
    EXPECT_EQ(logged("Total Strokes Fixed"), 2);
}
