// The stroke total: rebuilt from the strokes per minute, and read back when
// a job is opened.
#include "job_fixture.h"

#include "acquisition/job_buttons.h"
#include "store/lifecycle.h"

using depthtest::JobTest;

TEST_F(JobTest, TheRepairCountsATenthOfAMinutePerRecordFromTheFirstRecordsCount) {
    // Pumps at 95: the writer adds 9 a record (9.5, the half lost). The
    // first record holds 100.
    ws.depth.Gtotal_strokes = 91;
    for (int i = 0; i < 10; ++i) save({.spm = 95});
    // A counter gone wrong in the middle, and a record with no rate at all.
    exec("UPDATE OMBRI_DB_010 SET TOTAL_STROKES = 5 WHERE PACKET_NUM > 1005");
    exec("UPDATE OMBRI_DB_010 SET TOTAL_SPM = NULL WHERE PACKET_NUM = 1008");

    ws.db.Gdb_busy = true;
    depth::cmd_FixTotal_Strokes_Click(ws);
    EXPECT_EQ(logged("DB Busy: Total Strokes"), 1);
    EXPECT_EQ(at("TOTAL_STROKES", 9), 5);

    ws.db.Gdb_busy = false;
    failUpdateOf("TOTAL_STROKES", 1007);
    depth::cmd_FixTotal_Strokes_Click(ws);
    const auto total = column("TOTAL_STROKES");
    // 100 + 9.5 = 109.5: 109. Each record after it adds 9 more; the one
    // without a rate repeats the last rate it met. The row that cannot be
    // written keeps its count, and the rows after it are rebuilt all the same.
    for (int i = 0; i < 10; ++i) EXPECT_EQ(num(total[i]), i == 6 ? 5 : 100 + 9 * (i + 1)) << i;
    EXPECT_EQ(ws.depth.Gtotal_strokes, 190);
    EXPECT_EQ(logged("Total Strokes Fixed"), 1);
    EXPECT_FALSE(ws.db.Gdb_busy);
    exec("DROP TRIGGER stop_job");

    // With no rate anywhere every record gets the first count.
    exec("UPDATE OMBRI_DB_010 SET TOTAL_SPM = NULL");
    exec("UPDATE OMBRI_DB_010 SET TOTAL_STROKES = 777 WHERE PACKET_NUM = 1001");
    depth::Fix_total_strokes(ws);
    for (const auto& v : column("TOTAL_STROKES")) EXPECT_EQ(num(v), 777);

    // An empty job: nothing to go through, and still the message.
    exec("DELETE FROM OMBRI_DB_010");
    depth::Fix_total_strokes(ws);
    EXPECT_EQ(logged("Total Strokes Fixed"), 3);
}

TEST_F(JobTest, TheLastCountIsReadFiveRecordsFromTheEnd) {
    // A job shorter than five gives its first count.
    for (int i = 0; i < 3; ++i) save({});
    depth::ReadLastTotalStrokes(ws);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 10);

    // Counts 10, 20 ... 80: the fifth from the end is 40.
    ws.depth.Gtotal_strokes = 30;
    for (int i = 0; i < 5; ++i) save({});
    depth::ReadLastTotalStrokes(ws);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 40);
    EXPECT_EQ(logged("Last Total Strokes: 40"), 1);
    // Opening the job carries it into the running total too.
    ws.depth.Gtotal_strokes = 0;
    dialogs.files.push_back(job);
    acq::cmd_open_db_Click(ws);
    EXPECT_EQ(ws.depth.Gtotal_strokes, 40);
}
