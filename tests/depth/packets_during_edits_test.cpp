// Live packets go on arriving while an edit of the whole job runs, and the
// edit lets the event loop run inside its one transaction. The writer holds
// them meanwhile: whether the edit commits or rolls back, each packet is in
// the file once, after the edit, in the order it came.
#include "job_fixture.h"

#include "depth/geo_edit.h"
#include "raw_db.h"

#include <QTimer>

using depthtest::At;
using depthtest::JobTest;
using depthtest::RowAt;

namespace {

class PacketsDuringEdits : public JobTest {
  protected:
    // Saves a packet at every turn of the loop; counts those that came
    // while an edit held the writer back.
    struct Feeder {
        QTimer timer;
        int sent = 0, held = 0;
        explicit Feeder(PacketsDuringEdits& t) {
            timer.setInterval(0);
            QObject::connect(&timer, &QTimer::timeout, [this, &t] {
                held += t.ws.db.writesHeld ? 1 : 0;
                t.save(At(2000));
                ++sent;
            });
            timer.start();
        }
    };
    long long count(const QString& where) {
        return testkit::RawDb(path).number("SELECT count(*) FROM OMBRI_DB_010 WHERE " + where);
    }
};

TEST_F(PacketsDuringEdits, ARestoreAllThatFailsOrCommitsStoresEveryPacketAfterItOnceInOrder) {
    const int n = 40000;
    std::vector<depthtest::Row> rows;
    for (int i = 0; i < n; ++i) rows.push_back(RowAt(1000 + i * 0.1));
    bulk(rows);
    exec("UPDATE OMBRI_DB_010 SET DEPTH_RAW = DEPTH - 500");
    // The restore's write of the 30,000th record fails the first time.
    exec("CREATE TRIGGER stop_job BEFORE UPDATE OF DEPTH ON OMBRI_DB_010 WHEN OLD.PACKET_NUM = " +
         QString::number(1001 + 30000) + " BEGIN SELECT RAISE(ABORT, 'stopped'); END");

    struct Case {
        const char* name;
        long long restored; // records with DEPTH back on DEPTH_RAW afterwards
    };
    const Case cases[] = {{"fails", 0}, {"commits", n}};
    for (const Case& c : cases) {
        const long firstLive = packet;
        dialogs.answers.push_back(platform::Answer::Yes);
        Feeder feed(*this);
        depth::cmd_restore_all_geo_Click(ws);
        feed.timer.stop();

        EXPECT_GT(feed.held, 0) << c.name << ": the loop never ran inside the edit";
        EXPECT_FALSE(ws.db.writesHeld) << c.name;
        EXPECT_TRUE(ws.db.heldRows.empty()) << c.name;
        EXPECT_EQ(count("DEPTH = DEPTH_RAW AND PACKET_NUM < " + QString::number(1001 + n)),
                  c.restored)
            << c.name;
        // Every packet once (the packet number is unique), stored after the
        // edit in the order it came: row id and packet number rise together.
        testkit::RawDb raw(path);
        const QString live = QString::number(firstLive);
        EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE PACKET_NUM >= " + live),
                  feed.sent)
            << c.name;
        EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 a JOIN OMBRI_DB_010 b ON b.rowid "
                             "= a.rowid + 1 WHERE a.PACKET_NUM >= " +
                             live + " AND b.PACKET_NUM <> a.PACKET_NUM + 1"),
                  0)
            << c.name;
        exec("DROP TRIGGER IF EXISTS stop_job");
    }
    EXPECT_EQ(logged("Restore All Err: "), 1);
    EXPECT_EQ(logged("DB Write Err"), 0);
    EXPECT_EQ(ws.loop.yieldsHoldingWriteLock, 0);
}

} // namespace
