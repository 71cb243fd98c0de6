// The depth arrays collected from a job file: stretches of it, the whole
// table, and by lag depth.
#include "job_fixture.h"

using depthtest::JobTest;

TEST_F(JobTest, TheDepthArraysFillOneSlotPerClosedFootByStretchWholeTableOrLagDepth) {
    // 100 records, one foot every 10 (1000 to 1009 ft), the gas of record i
    // being i, the rate of record i being i / 10.
    for (int i = 0; i < 100; ++i) {
        save({.depth = 1000 + i / 10 + 0.25,
              .gas = double(i),
              .minFt = i / 10.0,
              .gases = {4, 2, 1, 0.5, 0.5}});
    }
    const auto& a = ws.depth;
    ws.db.Gdb_busy = true;
    depth::Collect_ROP_Data(ws);
    EXPECT_EQ(a.RopMaxDepth, 0) << "the file is busy: it stands back";
    ws.db.Gdb_busy = false;

    int32_t first = 0, result = 0;
    auto read = [&](int32_t from, int32_t to) {
        first = from;
        result = -7;
        depth::Collect_ROP_Data(ws, first, to, false, result);
        return result;
    };
    // Records 25 to 54: foot 1002 from record 25 (peak 29) closed by 30,
    // 1003 and 1004 whole; 1005 is still open when the stretch ends.
    EXPECT_EQ(read(55, 25), 30);
    EXPECT_EQ(first, 25) << "lastRec comes back in firstRec";
    EXPECT_EQ(a.RopGasPeak[1002], 29);
    EXPECT_EQ(a.RopGasPeak[1005], 0);
    EXPECT_EQ(a.RopMinDepth, 1002);
    EXPECT_EQ(a.RopMaxDepth, 1004);
    // A short stretch is read without the information box.
    EXPECT_TRUE(ws.fm_help.txt_help.text().isEmpty());
    // Going on from there adds to the arrays without clearing them.
    read(55, 100);
    EXPECT_EQ(a.RopGasPeak[1004], 49);
    EXPECT_EQ(a.RopGasPeak[1005], 59);
    // Past the newest record there is nothing to read; a negative end reads
    // nothing at all.
    EXPECT_EQ(read(500, 600), 0);
    EXPECT_EQ(read(-1, 10), -7);

    ws.depth.RopGasPeak[3000] = 99; // stale: the whole table clears first
    ws.fm_setup.op1_oil_ind.setValue(1);
    depth::cmd_get_all_ROP_Click(ws);
    EXPECT_EQ(a.RopGasPeak[3000], 0);
    EXPECT_EQ(a.RopGasPeak[1000], 9);
    EXPECT_EQ(a.RopMinFt[1000], 1);
    EXPECT_EQ(a.RopMinDepth, 1000);
    EXPECT_EQ(a.RopMaxDepth, 1008);
    EXPECT_EQ(a.RopLastPacket, 1100);
    // C1 is 4 of 8 weighted parts of the foot's peak: 4.5 of 9.
    EXPECT_DOUBLE_EQ(a.RopC1[1000], 4.5);
    EXPECT_DOUBLE_EQ(a.RopOilInd[1000], 2 / 4.0);
    EXPECT_EQ(depth::RopTimeToDate(a.RopTime[1000]), QDateTime(QDate(2026, 11, 1), QTime(6, 1, 0)));
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains("Gathering ROP data..."));

    // Lagged: each record lagged 20 records back, by hand.
    exec("UPDATE OMBRI_DB_010 SET LAG_GU = (SELECT b.DEPTH FROM OMBRI_DB_010 b "
         "WHERE b.PACKET_NUM = OMBRI_DB_010.PACKET_NUM - 20), DATA1 = 7 WHERE PACKET_NUM > 1020");
    exec("UPDATE OMBRI_DB_010 SET ERR_TXT = '0 *' WHERE PACKET_NUM = 1040");
    int32_t last = 0;
    first = 0;
    depth::Collect_ROP_Data(ws, first, last, true, result);
    // Record 38 is the best good gas lagged to 1001: 39 is bad.
    EXPECT_EQ(a.RopLagGas[1001], 38);
    EXPECT_EQ(a.RopMinFt[1001], 7) << "DATA1, the rate at the lag depth";
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains("Gathering LAGGED ROP data..."));

    exec("UPDATE OMBRI_DB_010 SET GAS_UNITS = 'lots' WHERE PACKET_NUM = 1050");
    depth::Collect_ROP_Data(ws);
    EXPECT_EQ(logged("DB ROP Chart Err: Type mismatch  Err pt: 6"), 1);
    EXPECT_FALSE(ws.db.Gdb_busy);
    EXPECT_FALSE(ws.fm_help.form.visible());
}
