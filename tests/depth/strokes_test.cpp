// The stroke total: rebuilt from the strokes per minute, and read back when
// a job is opened.
#include "job_fixture.h"

#include "acquisition/job_buttons.h"
#include "store/lifecycle.h"

using depthtest::JobTest;
using depthtest::Packet;

TEST_F(JobTest, TheRepairCountsATenthOfAMinutePerRecordFromTheFirstRecordsCount) {
    // Pumps at 95: the writer adds 9 a record (9.5, the half lost). The
    // first record holds 100.
    ws.depth.Gtotal_strokes = 91;
    for (int i = 0; i < 10; ++i) save(Packet().pumps(95));
    // A counter gone wrong in the middle, and a record with no rate at all.
    exec("UPDATE OMBRI_DB_010 SET TOTAL_STROKES = 5 WHERE PACKET_NUM > 1005");
    exec("UPDATE OMBRI_DB_010 SET TOTAL_SPM = NULL WHERE PACKET_NUM = 1008");

    ws.db.Gdb_busy = true;
    depth::cmd_FixTotal_Strokes_Click(ws);
    EXPECT_EQ(logged("DB Busy: Total Strokes"), 1);
    EXPECT_EQ(at("TOTAL_STROKES", 9), 5);

    ws.db.Gdb_busy = false;
    depth::cmd_FixTotal_Strokes_Click(ws);
    const auto total = column("TOTAL_STROKES");
    // 100 + 9.5 = 109.5: 109. Each record after it adds 9 more; the one
    // without a rate repeats the last rate it met.
    for (int i = 0; i < 10; ++i) EXPECT_EQ(num(total[i]), 100 + 9 * (i + 1)) << i;
    EXPECT_EQ(ws.depth.Gtotal_strokes, 190);

    // With no rate anywhere every record gets the first count.
    exec("UPDATE OMBRI_DB_010 SET TOTAL_SPM = NULL");
    exec("UPDATE OMBRI_DB_010 SET TOTAL_STROKES = 777 WHERE PACKET_NUM = 1001");
    depth::Fix_total_strokes(ws);
    for (const auto& v : column("TOTAL_STROKES")) EXPECT_EQ(num(v), 777);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 777);
}

TEST_F(JobTest, TheLastCountIsReadFiveRecordsFromTheEnd) {
    // A job shorter than five gives its first count.
    for (int i = 0; i < 3; ++i) save(Packet());
    depth::ReadLastTotalStrokes(ws);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 10);

    // Counts 10, 20 ... 80: the fifth from the end is 40.
    ws.depth.Gtotal_strokes = 30;
    for (int i = 0; i < 5; ++i) save(Packet());
    depth::ReadLastTotalStrokes(ws);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 40);
    EXPECT_EQ(logged("Last Total Strokes: 40"), 1);
    // Opening the job carries it into the running total too.
    ws.depth.Gtotal_strokes = 0;
    dialogs.files.push_back(path);
    acq::cmd_open_db_Click(ws);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 40);
}
