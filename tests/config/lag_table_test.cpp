// The lag zones between the job file and the setup panel, on real job files.
// What is in the file is read with SQLite itself, not through the store.
#include "config_fixture.h"
#include "db/schema.h"
#include "depth/lag.h"
#include "raw_db.h"

#include <QFile>

using cfgtest::Station;

namespace {

// The zone rows of the file as SQLite reads them, one "a b c d e f" a row.
QStringList LagRows(const QString& path) {
    return testkit::RawDb(path)
        .value("SELECT group_concat(printf('%g %g %g %g %g %g', ZoneNumber, StartDepth, EndDepth, "
               "StrPer100Ft, MinPer100Ft, Selection), '|') FROM (SELECT * FROM LagPara ORDER BY "
               "ZoneNumber)")
        .split('|');
}

void Exec(const QString& path, const char* sql) {
    EXPECT_EQ(testkit::RawDb(path).exec(sql), 0) << sql;
}

struct Job : Station {
    QString path = folder.file("JOB.DB");
    Job() {
        ws.fm_Gas_Chart.txt_db_path.setText(path);
        ws.loop.Gstarting_up = false;
    }
    // A job file with the record table only, as a file made before the lag
    // zones were kept would be.
    void makeWithoutLagTable() const {
        db::Database db = db::OpenDatabase(path, db::OpenMode::Create);
        db::CreateRecordTable(db, db::kRecordTable);
        db.Close();
    }
    QString message() const { return ws.fm_Gas_Chart.txt_message.text(); }
};

} // namespace

TEST(LagTable, ANewFileGetsSixRowsThatLagByTimePerDepth) {
    Job job;
    job.makeWithoutLagTable();
    depth::CreateLagTable(job.ws);
    EXPECT_EQ(job.message(), "");
    EXPECT_EQ(LagRows(job.path),
              QStringList({"1 1 30000 110 0.6 1", "2 0 0 110 0.6 1", "3 0 0 110 0.6 1",
                           "4 0 0 110 0.6 1", "5 0 0 110 0.6 1", "6 0 0 110 0.6 1"}));

    // Read into a panel whose method was strokes: the table's rows win.
    job.ws.fm_setup.op_lag_calc_Str.setValue(1);
    depth::ReadLagTable(job.ws);
    const auto& p = job.ws.fm_setup;
    EXPECT_EQ(p.txt_lag_min[1].text(), "0.6"); // the table's own default, not the panel's
    EXPECT_TRUE(p.op_lag_calc_Time.checked());
}

TEST(LagTable, AFileThatHasTheTableKeepsItsRowsAndFewerThanSixLeaveThePanelsOthers) {
    Job job;
    db::MakeBlankJob(job.path, db::kRecordTable);
    Exec(job.path, "UPDATE LagPara SET StartDepth = 4000, StrPer100Ft = 95, Selection = 0 "
                   "WHERE ZoneNumber = 2");
    Exec(job.path, "UPDATE LagPara SET MinPer100Ft = 2.2 WHERE ZoneNumber = 3");
    Exec(job.path, "DELETE FROM LagPara WHERE ZoneNumber > 3");
    const QStringList before = LagRows(job.path);
    depth::CreateLagTable(job.ws);
    EXPECT_EQ(LagRows(job.path), before);
    EXPECT_EQ(job.message(), "");

    auto& p = job.ws.fm_setup;
    p.txt_lag_min[4].setText("9.9");
    depth::ReadLagTable(job.ws);
    EXPECT_EQ(p.txt_lag_min[4].text(), "9.9");
    // Zone 2 said strokes, but the last row read decides: time.
    EXPECT_TRUE(p.op_lag_calc_Time.checked());

    // Written back, only the three rows there are change; what was read of
    // them shows in what is written.
    p.txt_lag_min[2].setText("3.3");
    depth::WriteLagTable(job.ws);
    EXPECT_EQ(LagRows(job.path),
              QStringList({"1 1 30000 110 0.6 1", "2 4000 0 95 3.3 1", "3 0 0 110 2.2 1"}));
}

TEST(LagTable, ThePanelGoesBackToTheFileAndTextThatIsNoNumberIsStoredAsZero) {
    Job job;
    db::MakeBlankJob(job.path, db::kRecordTable);
    auto& p = job.ws.fm_setup;
    const char* const starts[7] = {"", "1", "2500", "abc", "", "7000.5", "8000"};
    for (int i = 1; i <= 6; ++i) {
        p.txt_Lag_Start_Depth[i].setText(starts[i]);
        p.txt_Lag_End_Depth[i].setText(QString::number(i * 1000));
        p.txt_str_per_100ft[i].setText(QString::number(100 + i));
        p.txt_lag_min[i].setText(i == 5 ? "x1.5" : "1.8");
    }
    p.op_lag_calc_Time.setValue(0);
    p.op_lag_calc_Str.setValue(1);
    depth::WriteLagTable(job.ws);
    EXPECT_EQ(job.message(), "");
    EXPECT_EQ(LagRows(job.path), QStringList({"1 1 1000 101 1.8 0", "2 2500 2000 102 1.8 0",
                                              "3 0 3000 103 1.8 0", "4 0 4000 104 1.8 0",
                                              "5 7000.5 5000 105 0 0", "6 8000 6000 106 1.8 0"}));

    // A fresh panel reads the strokes method back.
    Job other;
    other.ws.fm_Gas_Chart.txt_db_path.setText(job.path);
    depth::ReadLagTable(other.ws);
    EXPECT_TRUE(other.ws.fm_setup.op_lag_calc_Str.checked());
}

TEST(LagTable, FailuresSayWhichRoutineAndLoseNothing) {
    Job job;
    // No file at all.
    job.ws.fm_Gas_Chart.txt_db_path.setText(job.folder.file("NOWHERE.DB"));
    depth::CreateLagTable(job.ws);
    EXPECT_TRUE(job.message().contains("Create Lag Table Err: ")) << job.message().toStdString();
    EXPECT_FALSE(job.folder.exists("NOWHERE.DB"));
    depth::ReadLagTable(job.ws);
    EXPECT_TRUE(job.message().contains("Read Lag Table Err: "));
    EXPECT_EQ(job.ws.fm_setup.txt_lag_min[1].text(), "1.8"); // the panel keeps its defaults
    depth::WriteLagTable(job.ws);
    EXPECT_TRUE(job.message().contains("Write Lag Table Err: "));

    // A file that is no job file is left as it was.
    const QString junk = job.folder.file("JUNK.DB");
    {
        QFile f(junk);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(4096, 'j'));
    }
    job.ws.fm_Gas_Chart.txt_db_path.setText(junk);
    depth::WriteLagTable(job.ws);
    EXPECT_TRUE(job.message().contains("Write Lag Table Err: "));
    EXPECT_EQ(job.folder.read("JUNK.DB"), QString(4096, 'j'));

    // A zone number the panel has no row for ends the read; earlier rows are in.
    db::MakeBlankJob(job.path, db::kRecordTable);
    Exec(job.path, "UPDATE LagPara SET ZoneNumber = 9, StartDepth = 1 WHERE ZoneNumber = 6");
    Exec(job.path, "UPDATE LagPara SET StartDepth = 777 WHERE ZoneNumber = 5");
    job.ws.fm_Gas_Chart.txt_db_path.setText(job.path);
    depth::ReadLagTable(job.ws);
    EXPECT_TRUE(job.message().contains("Read Lag Table Err: "));
    EXPECT_EQ(job.ws.fm_setup.txt_Lag_Start_Depth[5].text(), "777");
}
