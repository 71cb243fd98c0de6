// The job file's life: made, upgraded, converted, compacted, and the three
// job buttons.
#include "station.h"

#include "acquisition/job_buttons.h"

#include <gtest/gtest.h>

using storetest::InsertPackets;
using storetest::Packets;
using storetest::RawDb;
using storetest::Station;
using testkit::ReadFile;
using namespace store;
using namespace db;

namespace {

// A file of the generation before, as another SQLite tool would make it.
void MakeOldJob(const QString& path, int rows) {
    RawDb raw(path);
    raw.exec("CREATE TABLE OMBRI_DB_005 (ID INTEGER, SERIAL_NUM TEXT, DATE TEXT, TIME TEXT, "
             "DT TEXT, DEPTH TEXT, GAS_UNITS REAL, LEL REAL, METHANE REAL, PPM TEXT, TEMP REAL, "
             "MIN_FT REAL, FT_HR REAL, LPH REAL, INLET_PRS REAL, VOLTS REAL, VQ21 REAL, VQ6 REAL, "
             "CG_TEST_NUM REAL, VQ6CG REAL, VQ101 REAL, H2S REAL, ERR INTEGER)");
    raw.exec("BEGIN");
    for (int i = rows; i >= 1; --i)
        raw.exec(
            QString("INSERT INTO OMBRI_DB_005 VALUES (%1, 'OLD7', '03/05/2009', '10:00:%2', "
                    "'2009-03-05 10:00:%2', '%3', %4, 1.5, 2.5, '40', 77, 3, 20, 60, 9.5, 13.2, "
                    "1.1, 2.2, %1, 0.7, 0.3, 4, %5)")
                .arg(i)
                .arg(i, 2, 10, QChar('0'))
                .arg(1000 + i)
                .arg(i * 10)
                .arg(i % 3));
    raw.exec("COMMIT");
}

} // namespace

TEST(Lifecycle, AMissingDemonstrationJobIsCopiedOrMadeBlankFromTheTemplate) {
    Station s(false);
    const QString demo = s.folder.file("DB_CUE/V11_DEMO.DB");
    s.ws.fm_Gas_Chart.txt_db_path.setText(demo);
    s.open();
    for (const QString& line :
         {demo + " File not found", QStringLiteral("Attempting to create blank demo"),
          demo + " created"})
        EXPECT_TRUE(s.saw(line)) << line.toStdString();
    // The template was made from the schema, and the job from it.
    ASSERT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 0);
    EXPECT_EQ(RawDb(demo).number("SELECT count(*) FROM LagPara"), 6);

    // With the program's own copy of the demonstration job beside it, that
    // copy is what a missing demonstration job becomes.
    CloseSharedDb(s.ws);
    ASSERT_TRUE(RemoveJobFile(demo));
    storetest::MakeJob(s.folder.file("V11_DEMO.DB"));
    InsertPackets(s.folder.file("V11_DEMO.DB"), {1, 2, 3});
    s.ws.fm_Gas_Chart.txt_message.setText("");
    s.open();
    EXPECT_TRUE(s.saw("Created demo DB " + demo));
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 3);
}

TEST(Lifecycle, MakeDatabaseKeepsWhatStoodThereAndInsistsOnADbName) {
    Station s;
    InsertPackets(s.job, {1, 2});
    QString path = s.job;
    MakeDatabase(s.ws, path);
    EXPECT_EQ(path, s.job);
    EXPECT_EQ(s.rows(), 0);
    EXPECT_EQ(RawDb(s.folder.file("DB_CUE/OLD_JOB.DB")).rows(), 2);

    // A name that does not end in DB: the blank name in that folder, and the
    // open that follows takes it as the job.
    s.ws.fm_Gas_Chart.txt_db_path.setText(s.folder.file("DB_CUE/notes.txt"));
    s.open();
    const QString blank = s.folder.file("DB_CUE/OMBRI_010_BLANK.DB");
    EXPECT_EQ(s.ws.fm_Gas_Chart.txt_db_path.text(), blank);
    EXPECT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_FALSE(s.folder.exists("DB_CUE/notes.txt"));
}

TEST(Lifecycle, AnOpenAddsTheLateColumnsWithoutAQuestionAndRenumbersIdInPacketOrder) {
    Station s(false);
    // A job made by another SQLite tool, before the late columns, without
    // the unique index, its IDs all alike.
    RawDb(s.job).exec(
        "CREATE TABLE OMBRI_DB_010 (ID INTEGER, PACKET_NUM INTEGER, SERIAL_NUM TEXT, "
        "DATE_TXT TEXT, TIME_TXT TEXT, DT TEXT, DEPTH REAL, GAS_UNITS REAL, ERR_TXT TEXT)");
    InsertPackets(s.job, Packets(2500, 5));
    RawDb(s.job).exec("UPDATE OMBRI_DB_010 SET ID = 7");
    QList<bool> shown;
    QList<int> progress;
    s.ws.fm_help.form.listen([&](const forms::Control& c, forms::Prop p) {
        if (p == forms::Prop::Visible) shown << c.visible();
    });
    s.ws.fm_help.pgbar.listen([&](const forms::Control& c, forms::Prop p) {
        if (p == forms::Prop::Value) progress << c.value();
    });
    s.open();
    EXPECT_TRUE(s.dialogs.boxes.empty());
    ASSERT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_TRUE(s.ws.db.Grecords.Fields("KW7001").isNull());
    EXPECT_TRUE(s.ws.db.Grecords.Fields("NC5").isNull());
    EXPECT_EQ(s.ws.fm_help.form.caption(), "Re-indexing Data Base.  Wait...");
    EXPECT_EQ(shown, (QList<bool>{true, false}));
    // A first commit after ten rows, then one a thousand.
    EXPECT_EQ(progress, (QList<int>{1, 10, 1010, 2010}));
    RawDb raw(s.job);
    EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE ID = PACKET_NUM"), 2500);
    // The packet number is unique from now on, and a record is found by its
    // ID without reading the whole table.
    EXPECT_NE(raw.exec("INSERT INTO OMBRI_DB_010 (PACKET_NUM) VALUES (5)"), SQLITE_OK);
    EXPECT_EQ(raw.number("SELECT count(*) FROM sqlite_master WHERE type = 'index' AND "
                         "tbl_name = 'OMBRI_DB_010' AND sql LIKE '%(ID)'"),
              1);

    // The writer's next row goes on from what the re-index left.
    EXPECT_EQ(s.ws.db.NextRecordId, 2501);
}

TEST(Lifecycle, AnOlderJobIsConvertedOnlyWhenTheUserAgrees) {
    Station s(false);
    MakeOldJob(s.job, 25);
    const QByteArray before = ReadFile(s.job);

    s.dialogs.answers.push_back(platform::Answer::No);
    s.open();
    ASSERT_EQ(s.dialogs.boxes.size(), 1u);
    EXPECT_EQ(s.dialogs.boxes[0].title, "CONVERT DATA BASE TO NEW TYPE?");
    EXPECT_EQ(s.dialogs.boxes[0].text, "This data base is not compatible with the new version\r\n"
                                       "Would you like to convert it?");
    EXPECT_EQ(ReadFile(s.job), before);
    EXPECT_FALSE(s.ws.db.Gdb.isOpen() || s.ws.db.Grecords.isOpen());

    s.dialogs.answers.push_back(platform::Answer::Yes);
    s.open();
    ASSERT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 25);
    EXPECT_EQ(RawDb(s.job + ".old").number("SELECT count(*) FROM OMBRI_DB_005"), 25);
    // Old ID order becomes the packet order; each column from its old name.
    RawDb raw(s.job);
    EXPECT_EQ(
        raw.value("SELECT ID||'|'||SERIAL_NUM||'|'||DATE_TXT||'|'||TIME_TXT||'|'||DT||'|'||DEPTH||"
                  "'|'||DEPTH_RAW||'|'||GAS_UNITS||'|'||O2||'|'||CO2||'|'||ATTEN||'|'||TEMP||'|'||"
                  "MIN_FT||'|'||FT_HR||'|'||LPH||'|'||SAMPLEVAC||'|'||VOLTS||'|'||LOWGUV||'|'||"
                  "HIGHGUV||'|'||CGTESTNUM||'|'||CGV||'|'||H2SV||'|'||H2S||'|'||ERR_TXT "
                  "FROM OMBRI_DB_010 WHERE PACKET_NUM = 7"),
        "7|OLD7|03/05/2009|10:00:07|2009-03-05 10:00:07|1007.0|1007.0|70.0|1.5|2.5|40.0|77.0|"
        "3.0|20.0|60.0|9.5|13.2|1.1|2.2|7.0|0.7|0.3|4.0|1");
    EXPECT_EQ(raw.value("SELECT typeof(ERR_TXT)||' '||typeof(ATTEN) FROM OMBRI_DB_010 LIMIT 1"),
              "text real");
}

TEST(Lifecycle, CompactKeepsEveryRowAndTheWriterFollowsTheNewFile) {
    Station s;
    InsertPackets(s.job, Packets(3000));
    RawDb(s.job).exec("DELETE FROM OMBRI_DB_010 WHERE PACKET_NUM > 1000");
    s.open();
    s.save(5000);
    const qint64 size = QFileInfo(s.job).size();
    Compact_db(s.ws);
    EXPECT_FALSE(s.ws.db.Gdb_busy);
    EXPECT_EQ(s.ws.fm_help.form.caption(), "Compacting Data Base \r\nDon't Touch Any Buttons.");
    EXPECT_LT(QFileInfo(s.job).size(), size);
    ASSERT_TRUE(s.ws.db.Grecords.isOpen());
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 1001);
    s.save(5001);
    EXPECT_EQ(s.rows(), 1002);
    EXPECT_EQ(RawDb(s.job).integrity(), "ok");

    // While another job holds the shared set, the compact does nothing.
    const QByteArray before = ReadFile(s.job);
    s.ws.db.Gdb_busy = true;
    Compact_db(s.ws);
    EXPECT_EQ(ReadFile(s.job), before);
}

TEST(Lifecycle, NewOpenAndSaveAsGoThroughTheirDialogs) {
    Station s;
    s.open();
    s.ws.depth.Gtotal_strokes = 500;
    s.ws.depth.Glag_depth_now = 1234;

    // Cancelled: nothing moves, and the refresh runs again.
    acq::cmd_new_db_Click(s.ws);
    ASSERT_EQ(s.dialogs.boxes.size(), 1u);
    EXPECT_EQ(s.dialogs.boxes[0].title, "CREATE NEW DATA BASE FILE");
    EXPECT_EQ(s.ws.depth.Gtotal_strokes, 500);
    EXPECT_FALSE(s.ws.chart.Grefresh_paused);

    const QString well = s.folder.file("DB_CUE/WELL7");
    s.dialogs.files.push_back(well);
    acq::cmd_new_db_Click(s.ws);
    EXPECT_EQ(s.ws.db.Gdb.Name(), well + ".DB");
    EXPECT_EQ(s.ws.depth.Gtotal_strokes, 1);
    EXPECT_EQ(s.ws.more_data.lbl_current_lag_depth.caption(), "0.0");

    // Open the first job again, with rows of its own.
    InsertPackets(s.job, {1, 2, 3, 4});
    s.dialogs.files.push_back(s.job);
    acq::cmd_open_db_Click(s.ws);
    EXPECT_EQ(s.dialogs.boxes.back().title, "OPEN DATA BASE FILE");
    EXPECT_EQ(s.ws.db.Grecords.RecordCount(), 4);
    EXPECT_EQ(s.ws.chart.LastRecord, 2);

    // Save as: the copy is the job from now on, the rows written next go
    // there and the first file keeps what it had.
    const QString copy = s.folder.file("DB_CUE/COPY.db");
    s.dialogs.files.push_back(copy);
    acq::cmd_save_database_Click(s.ws);
    EXPECT_EQ(s.dialogs.boxes.back().title, "SAVE DATA BASE FILE");
    s.save(10);
    EXPECT_EQ(RawDb(copy).packets(), "1,2,3,4,10");
    EXPECT_EQ(s.rows(), 4);

    // None of the three starts while a job holds the shared set.
    s.ws.db.Gdb_busy = true;
    const size_t asked = s.dialogs.boxes.size();
    acq::cmd_new_db_Click(s.ws);
    acq::cmd_open_db_Click(s.ws);
    acq::cmd_save_database_Click(s.ws);
    EXPECT_EQ(s.dialogs.boxes.size(), asked);
}
