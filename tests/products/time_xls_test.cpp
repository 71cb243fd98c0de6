// The time LAS and the XLS file of the small job, worked out by hand.
#include "products/time_las.h"
#include "products/xls_file.h"
#include "products_fixture.h"

using productstest::Cells;
using productstest::ProductsTest;

namespace {

const QByteArray kCustomNames = "Weight On Bit\tStandpipe Pressure\tRotary RPM\tTotal Mud Volume";

} // namespace

TEST_F(ProductsTest, TimeLasHasOneRowPerRecordUnderItsColumnLine) {
    smallJob();
    ws.products.Gdata_separator = ","; // not this file's business
    ws.fm_setup.ck_gen_half_ft_las.setChecked(true);
    products::Create_LAS_TIME_file(ws, outFile("well_TIME.LAS"));
    const auto l = lines("well_TIME.LAS");
    ASSERT_EQ(l.size(), 7) << "the column line and six records, the last without a line end";
    EXPECT_EQ(l[0],
              "MM/DD/YY HH:MM:SS\tDepth\tROP\tTG\tC1\tC2\tC3\tiC4\tnC4\tiC5\tnC5\tC4\tC5\tTG2\t"
              "GAMMA\tO2\tCO2\tH2S\t" +
                  kCustomNames);
    EXPECT_EQ(l[1], Cells("11/01/2026 06:00:00|1000.2|2.000|10.00|4.000|2.000|1.000|0.500|0.500|"
                          "0.000|0.000|1.0|0.0|10.00|50.000|20.900|0.500|0|0.000|0.000|0.000|"
                          "0.000"));
    EXPECT_EQ(l[3], Cells("11/01/2026 06:00:12|1001.1|3.000|20.00|8.000|4.000|4.000|2.000|2.000|"
                          "0.000|0.000|4.0|0.0|20.00|70.000|20.500|0.600|2|100.000|0.000|0.000|"
                          "0.000"));
    EXPECT_FALSE(ws.db.Gdb_busy);

    // The lagged depth column with no lag yet reads 0.0; ROP as feet an hour.
    ws.fm_setup.chk_depth_is_lag_depth_las.setChecked(true);
    ws.fm_setup.ck_ROP_is_FtHr.setChecked(true);
    products::Create_LAS_TIME_file(ws, outFile("well_TIME.LAS"));
    EXPECT_TRUE(lines("well_TIME.LAS")[1].startsWith("11/01/2026 06:00:00\t0.0\t30.000\t10.00\t"));

    // An empty table: the column line alone.
    testkit::RawDb(job).exec("DELETE FROM OMBRI_DB_010");
    products::Create_LAS_TIME_file(ws, outFile("well_TIME.LAS"));
    EXPECT_EQ(lines("well_TIME.LAS").mid(1), QList<QByteArray>{""});
}

TEST_F(ProductsTest, XlsRowsHoldThePeaksOfEachFootAndTheRecordThatClosedIt) {
    smallJob();
    products::Create_XLS_file(ws, outFile("well.XLS"));
    const auto l = lines("well.XLS");
    // The depth is the rounded whole foot: 1000.7 is already foot 1001.
    ASSERT_EQ(l.size(), 6);
    EXPECT_EQ(l[0],
              "#Depth\tROP\tTG\tC1\tC2\tC3\tiC4\tnC4\tiC5\tnC5\tC4\tC5\tTG2\tGAMMA\tO2\tCO2\tH2S\t"
              "OILIND\t" +
                  kCustomNames);
    EXPECT_EQ(l[1], "") << "an empty line after the column line";
    EXPECT_EQ(l[2], Cells("1001|2.000|12.00|6.000|3.000|1.500|0.750|0.750|0.000|0.000|1.5|0.0|"
                          "12.00|60.00|21.000|0.400|1|0.0000|0.000|0.000|0.000|0.000|"
                          "11/01/2026 06:00:06"));
    EXPECT_EQ(l[3], Cells("1002|3.000|20.00|8.000|4.000|4.000|2.000|2.000|0.000|0.000|4.0|0.0|"
                          "20.00|70.00|20.400|0.700|3|0.0000|0.000|0.000|0.000|0.000|"
                          "11/01/2026 06:00:18"));
    EXPECT_EQ(l[5], "") << "every row ends in a line end; the open foot is not written";
    EXPECT_FALSE(exists("well_Last48.xls"));

    // Percent with the per-gas gains; oil indicator 1; a Null date; the
    // header; the last 48 hours file beside it.
    auto& s = ws.fm_setup;
    s.txt_c1_gain.setText("2");
    s.op_cg_in_gu.setValue(0);
    s.op_cg_percent.setValue(1);
    s.op1_oil_ind.setValue(1);
    s.ck_gen_xls_hdr.setChecked(true);
    s.ck_gen_xls48_file.setChecked(true);
    ws.Now = [] { return QDateTime(QDate(2026, 11, 3), QTime(6, 0, 10)); };
    testkit::RawDb(job).exec("UPDATE OMBRI_DB_010 SET DT = NULL WHERE PACKET_NUM = 1006");
    products::Create_XLS_file(ws, outFile("well.XLS"));
    const auto h = lines("well.XLS");
    EXPECT_EQ(h[0], "~VERSION INFORMATION");
    const int ascii = static_cast<int>(h.indexOf("~ASCII"));
    ASSERT_GT(ascii, 2);
    EXPECT_TRUE(h[ascii - 2].startsWith("#Depth\t")) << "the column line, its empty line, ~ASCII";
    // Foot 1001: C1 6 x 2 = 12 of 12 + 3 + 1.5 + 0.75 + 0.75 = 18.
    const auto cols = h[ascii + 1].split('\t');
    EXPECT_EQ(cols.mid(3, 9).join('\t'),
              "66.667\t16.667\t8.333\t4.167\t4.167\t0.000\t0.000\t8.333\t0.000");
    // (C3 + iC4 + nC4) / C1 on the gained peaks: 3 / 12.
    EXPECT_EQ(cols[17], "0.2500");
    EXPECT_TRUE(h[ascii + 3].endsWith("\t0/0/0000 00:00:00 AM"));
    // Records after 06:00:10 two days back: feet 1002 (06:00:18) only; the
    // Null date never counts as recent.
    const auto r = lines("well_Last48.xls");
    EXPECT_EQ(r.mid(r.indexOf("~ASCII") + 1), (QList<QByteArray>{h[ascii + 2], ""}));
}
