// What the start-up leaves of the job it opens.
#include "acquisition/startup.h"
#include "config/config_file.h"
#include "depth/lag.h"
#include "raw_db.h"
#include "test_station.h"

#include <QFile>
#include <gtest/gtest.h>

using testkit::RawDb;

namespace {

// A job of 1000 records drilled at 0.1 ft a record, pumps at 100 (10
// strokes a record), unit "KW2207"; the station's own workstation leaves
// the settings, and a second one starts over the folder.
struct Unit : testkit::Station {
    Unit() : Station("WELL7.DB") {
        RawDb raw(job);
        raw.exec("BEGIN");
        for (int i = 0; i < 1000; ++i)
            raw.exec(QString("INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, SERIAL_NUM, DT, DEPTH, "
                             "MIN_FT, ERR_TXT, TOTAL_SPM, TOTAL_STROKES) VALUES (%1, %1, "
                             "'KW2207', datetime('2026-11-01 06:00:00', '+%2 seconds'), %3, 1, "
                             "'0', 100, %4)")
                         .arg(i + 1)
                         .arg(6 * i)
                         .arg(1000 + 0.1 * i)
                         .arg(1000 + 10 * i));
        raw.exec("COMMIT");
    }

    // One lag zone over the whole hole, by strokes or by time, and the job
    // named as jobName.
    void leaveSettings(bool byTime, const QString& jobName) {
        auto& p = ws.fm_setup;
        depth::CreateLagTable(ws);
        p.txt_Lag_Start_Depth[1].setText("0");
        p.txt_Lag_End_Depth[1].setText("30000");
        p.txt_str_per_100ft[1].setText("200");
        p.txt_lag_min[1].setText("3");
        p.op_lag_calc_Time.setValue(byTime ? 1 : 0);
        p.op_lag_calc_Str.setValue(byTime ? 0 : 1);
        depth::WriteLagTable(ws);
        ws.fm_Gas_Chart.txt_db_path.setText(jobName);
        config::WriteConfigFile(ws);
    }

    QString newestLag() {
        return RawDb(job).value("SELECT group_concat(LAG_GU) FROM (SELECT LAG_GU FROM "
                                "OMBRI_DB_010 ORDER BY PACKET_NUM DESC LIMIT 50)");
    }
};

} // namespace

TEST(StartupJob, TheJobOpensUnderDbWithItsNewestRecordsLaggedBeforeAnyTimerTick) {
    for (const bool byTime : {false, true}) {
        SCOPED_TRACE(byTime ? "by time" : "by strokes");
        Unit u;
        // Named as the older generation did, with a refresh under the
        // control box's floor.
        QString older = u.job;
        older.replace(".DB", ".MDB");
        u.ws.chart.Grefresh_seconds = 5;
        u.leaveSettings(byTime, older);
        testkit::WiredWorkstation ws(u.folder.path(), &u.dialogs);
        ASSERT_TRUE(acq::Form_Load(ws));
        ws.StopTimers();
        EXPECT_EQ(ws.fm_Gas_Chart.txt_db_path.text(), u.job);
        EXPECT_EQ(ws.db.Grecords.RecordCount(), 1000);
        EXPECT_FALSE(QFile::exists(older)) << "no new job was made under the older name";
        EXPECT_EQ(ws.chart.Grefresh_seconds, 5);
        EXPECT_EQ(ws.packet.UnitSerial, "KW2207");
        EXPECT_TRUE(u.folder.read("ERR_LOG.TXT").contains("** KW2207 - ")) << "the open's lines";

        // What the timers give once they have run: the same lag, and the
        // zone's (22 ft or 33 ft behind the bit), not the line lag alone.
        const QString atStart = u.newestLag();
        depth::tmr_lag_calc_Timer(ws);
        depth::RecalculateLag(ws, 400, 0, 0);
        EXPECT_EQ(u.newestLag(), atStart);
        const double lag = RawDb(u.job)
                               .value("SELECT LAG_GU FROM OMBRI_DB_010 ORDER BY PACKET_NUM "
                                      "DESC LIMIT 1")
                               .toDouble();
        EXPECT_GT(lag, 1000);
        EXPECT_LT(lag, 1099.9 - 15);
    }
}
