// OMD and CSV export of the small job, and the import's merge rules.
#include "file_bytes.h"
#include "products/omd.h"
#include "products_fixture.h"

using productstest::ProductsTest;

namespace {

// Record 1001 in the column order of the text forms; Null columns empty.
const QByteArray kRecord1001 = "1001,KW1042,11/01/2026,06:00:00,,1000.2,10,4,2,1,0.5,0.5,20.9,0.5,"
                               ",,2,30,,,,,,,,,0,0,,,,,,,,,,50,,,0,0,";

} // namespace

TEST_F(ProductsTest, ExportWritesEveryRecordInPacketOrder) {
    smallJob();
    EXPECT_EQ(products::ExportRecords(ws, outFile("job.OMD"), products::TextForm::Omd), 6);
    const auto l = lines("job.OMD");
    ASSERT_EQ(l.size(), 7);
    EXPECT_EQ(l[0], "#," + kRecord1001);
    EXPECT_EQ(l[6], "") << "every line ends in CR LF";

    products::ExportRecords(ws, outFile("job.CSV"), products::TextForm::Csv);
    const auto c = lines("job.CSV");
    EXPECT_TRUE(c[0].startsWith("PACKET_NUM,SERIAL_NUM,DATE_TXT,TIME_TXT,DEPTH_RAW,DEPTH,"));
    EXPECT_EQ(c[1], kRecord1001);

    // The command: the dialog's name gets its extension unless it has it in
    // any case; a cancel writes nothing.
    dialogs.files = {outFile("a.omd"), outFile("b"), ""};
    products::cmd_export_txt_Click(ws);
    products::cmd_export_txt_Click(ws);
    products::cmd_export_txt_Click(ws);
    EXPECT_TRUE(exists("a.omd"));
    EXPECT_TRUE(exists("b.OMD"));
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains("The files have been Generated"));
    EXPECT_FALSE(ws.db.Gdb_busy);
    dialogs.files = {outFile("c")};
    products::cmd_export_to_csv_Click(ws);
    EXPECT_TRUE(exists("c.CSV"));
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains("The CSV file have been Generated!"));
}

TEST_F(ProductsTest, ImportMergesByPacketAndRefusesWhatIsNoRecord) {
    smallJob();
    struct Case {
        const char* what;
        QByteArray text;
        long added, skipped, refused;
        const char* shows;
    } cases[] = {
        {"too few fields", "#,2001,KW1042,11/01/2026,06:01:00,1,2,3\r\n#,2002,x\r\n", 0, 0, 2,
         "Invalid Record 2"},
        {"no mark", "2003,KW1042\r\n\r\n", 0, 0, 2, "Invalid Record 2"},
        {"non-numbers and empty fields",
         "#,2004,KW1042,11/01/2026,06:01:06,,abc,12x,4,2,1,0.5,0.5,20.9,0.5,,,2,30,,,,,,,,,0,0,,,,"
         ",,,,,,50,,,0,0,\r\n",
         1, 0, 0, "The files have been imported\r\n"},
        {"a duplicate among new ones",
         "#," + kRecord1001 + "\r\n#,2005,KW1042,11/01/2026,06:01:12" + QByteArray(38, ',') +
             "\r\n",
         1, 1, 0, "The files have been imported\r\n"},
        {"instrument lines",
         "@,261101,060118,2006,1010.5,1010,15,20.9,0.1,2.5,7,1,0,5,2,1,0.5,0.5,"
         "40,110,0.5,180\r\n@,261101,060124,2007,1011,1011\r\n",
         1, 0, 1, "Invalid Record 1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(testkit::WriteFile(outFile("in.OMD"), c.text));
        ws.fm_help.txt_help.setText("");
        const auto n = products::Import_OMD_file(ws, outFile("in.OMD"));
        EXPECT_EQ(n.added, c.added);
        EXPECT_EQ(n.skipped, c.skipped);
        EXPECT_EQ(n.refused, c.refused);
        EXPECT_TRUE(ws.fm_help.txt_help.text().contains(c.shows));
    }
    testkit::RawDb raw(job, testkit::RawDb::Access::ReadOnly);
    EXPECT_EQ(raw.packets(), "1001,1002,1003,1004,1005,1006,2004,2005,2006");
    // Text through Val: "abc" is 0, "12x" is 12; an empty field is "0".
    EXPECT_EQ(raw.value("SELECT DEPTH || '|' || GAS_UNITS || '|' || DEPTH_RAW || '|' || DT FROM "
                        "OMBRI_DB_010 WHERE PACKET_NUM = 2004"),
              "0.0|12.0|0.0|2026-11-01 06:01:06");
    // The instrument line: the date and time rebuilt, part 9 in both rates.
    EXPECT_EQ(raw.value("SELECT DATE_TXT || ' ' || TIME_TXT || '|' || MIN_FT || '|' || FT_HR || "
                        "'|' || AZIMUTH || '|' || BIT_DEPTH FROM OMBRI_DB_010 WHERE PACKET_NUM = "
                        "2006"),
              "2026/11/01 06:01:18|2.5|2.5|180.0|1010.0");
    EXPECT_EQ(raw.integrity(), "ok");
}

TEST_F(ProductsTest, TheForcedImportNumbersInstrumentLinesByTheRunningCount) {
    smallJob();
    // An instrument that restarted its count: both lines say packet 1.
    ASSERT_TRUE(testkit::WriteFile(
        outFile("in.OMD"), "@,261102,070000,1,1100,1100,5,20.9,0.1,2,0,0,0,1,1,1,1,1,10,90\r\n"
                           "@,261102,070006,1,1101,1101,6,20.9,0.1,2,0,0,0,1,1,1,1,1,10,90\r\n"));
    auto n = products::Import_OMD_file(ws, outFile("in.OMD"));
    EXPECT_EQ(n.added, 1);
    EXPECT_EQ(n.skipped, 1) << "the second packet 1 is a duplicate";
    ws.fm_Gas_Chart.CK_Import_OMD.setChecked(true);
    n = products::Import_OMD_file(ws, outFile("in.OMD"));
    EXPECT_EQ(n.added, 2);
    testkit::RawDb raw(job, testkit::RawDb::Access::ReadOnly);
    // Seven records in the job: the lines become packets 8 and 9.
    EXPECT_EQ(raw.packets(), "1,8,9,1001,1002,1003,1004,1005,1006");
    EXPECT_EQ(raw.value("SELECT DEPTH FROM OMBRI_DB_010 WHERE PACKET_NUM = 9"), "1101.0");

    // A date the record cannot carry ends the run with its error; what came
    // before it stays.
    ws.fm_Gas_Chart.CK_Import_OMD.setChecked(false);
    ASSERT_TRUE(testkit::WriteFile(
        outFile("bad.OMD"), "#,3001,KW1042,11/01/2026,06:02:00" + QByteArray(38, ',') +
                                "\r\n#,3002,KW1042,13/45/2026,06:02:06" + QByteArray(38, ',') +
                                "\r\n#,3003,KW1042,11/01/2026,06:02:12" + QByteArray(38, ',') +
                                "\r\n"));
    n = products::Import_OMD_file(ws, outFile("bad.OMD"));
    EXPECT_EQ(n.added, 1);
    EXPECT_TRUE(
        ws.fm_help.txt_help.text().contains("The files have been imported with error  Err No: 13"));
    EXPECT_EQ(
        testkit::RawDb(job).number("SELECT count(*) FROM OMBRI_DB_010 WHERE PACKET_NUM > 3000"), 1);

    // The command stands back while the job is busy.
    ws.db.Gdb_busy = true;
    dialogs.files = {outFile("in.OMD")};
    products::cmd_import_txt_Click(ws);
    EXPECT_EQ(dialogs.files.size(), 1u);
    ws.db.Gdb_busy = false;
}
