// The depth LAS files of the small job against what was worked out by hand.
#include "products/depth_las.h"
#include "products_fixture.h"

using productstest::Cells;
using productstest::ProductsTest;

namespace {

// The header of the small job (feet 1000 to 1002, gas units, minutes per
// foot) as mnemonic, unit and value, the part before each line's colon; the
// wording after the colon is fixed text and left to the readers of the files.
const char* const kHeader =
    "~VERSION INFORMATION|VERS . 2|WRAP . NO|DLM . SPACE|~WELL INFORMATION|STRT .ft 1000|"
    "STOP .ft 1002|STEP .ft 1|NULL . -999.25|COMP .|WELL .|FLD .|LOC .|SRVC .|DATE . 11/02/2026|"
    "CTRY .|PROV .|UWI .|LIC .|STAT .|CNTY .|API . 42-123-45678|# Surface Coords:|LATI .DEG|"
    "LONG .DEG|GDAT .|~PARAMETER|# There are no parameters|~CURVE|Depth .ft|ROP .min/ft|"
    "TG .Units|C1 .Units|C2 .Units|C3 .Units|iC4 .Units|nC4 .Units|iC5 .Units|nC5 .Units|"
    "C4 .Units|C5 .Units|TG2 .Units|GAMMA .APIUnits|O2 .Percent|CO2 .Percent|H2S .ppm|"
    "OILIND .Units|Weight On Bit .units|Standpipe Pressure .units|Rotary RPM .units|"
    "Total Mud Volume .units";

// A header line's mnemonic, unit and value, spaces closed up.
QByteArray Head(const QByteArray& line) {
    const qsizetype colon = line.indexOf(" :");
    return (colon < 0 ? line : line.left(colon)).simplified();
}

// Foot 1000 closed by record 1003 (rate 3, O2 20.5 ...), 1001 by 1005 and
// 1002 by 1006; the gas shares are the foot's peaks since they sum to its
// peak gas.
const QByteArray kRow1000 =
    Cells("1000|3.000|12.00|6.000|3.000|1.500|0.750|0.750|0.000|0.000|1.5|0.0|"
          "12.00|60.000|20.500|0.600|2|0.0000|100.000|0.000|0.000|0.000");
const QByteArray kRow1001 =
    Cells("1001|4.000|20.00|8.000|4.000|4.000|2.000|2.000|0.000|0.000|4.0|0.0|"
          "20.00|70.000|20.300|0.800|4|0.0000|0.000|0.000|0.000|0.000");
const QByteArray kRow1002 =
    Cells("1002|5.000|5.00|2.000|1.000|1.000|0.500|0.500|0.000|0.000|1.0|0.0|"
          "5.00|30.000|20.200|0.900|5|0.0000|0.000|0.000|0.000|0.000");

} // namespace

class DepthLas : public ProductsTest {
  protected:
    QString main = outFile("well.7.las");
    DepthLas() { smallJob(); }
    void run() { products::Create_LAS_file(ws, main); }
};

TEST_F(DepthLas, TheSmallJobGivesTheHeaderAndRowsWorkedOutByHand) {
    ws.fm_setup.ck_gen_las_type1.setChecked(true);
    ws.fm_setup.txt_APN_Number.setText("42-123-45678");
    run();

    const QByteArray file = bytes("well.7.las");
    const QList<QByteArray> l = file.split('\n');
    const QList<QByteArray> header = QByteArray(kHeader).split('|');
    ASSERT_GT(l.size(), header.size());
    for (int i = 0; i < header.size(); ++i) EXPECT_EQ(Head(l[i]), header[i]) << "line " << i;
    // Blanks make the number up to 20 characters before the fixed tail.
    EXPECT_EQ(l[21], "API       . 42-123-45678" + QByteArray(8, ' ') +
                         "                     : API Number     (required if CTRY = US)\r");
    QByteArray rest;
    rest += Cells("#Depth|ROP|TG|C1|C2|C3|iC4|nC4|iC5|nC5|C4|C5|TG2|GAMMA|O2|CO2|H2S|OILIND|"
                  "Weight On Bit|Standpipe Pressure|Rotary RPM|Total Mud Volume") +
            "\r\n";
    rest += "~ASCII\r\n" + kRow1000 + "\r\n" + kRow1001 + "\r\n" + kRow1002;
    EXPECT_EQ(file.count("\r\n"), header.size() + 4) << "every line ends CR LF but the last";
    EXPECT_EQ(file.count('\n'), file.count("\r\n"));
    EXPECT_TRUE(file.endsWith(rest)) << "no line end after the last row";

    // The gas only file: its short header always, whatever the options say.
    const auto gas = lines("well.7_GasOnly.las");
    ASSERT_EQ(gas.size(), 35);
    EXPECT_EQ(Head(gas[21]), "API .") << "never a number in the gas only file";
    EXPECT_EQ(Head(gas[29]) + "|" + Head(gas[30]), "Depth .ft|TG .Units");
    EXPECT_TRUE(
        bytes("well.7_GasOnly.las").endsWith("~ASCII\r\n1000\t12.00\r\n1001\t20.00\r\n1002\t5.00"));
    EXPECT_FALSE(exists("well.7_Last48.las")) << "the 48 hours box is off";
    EXPECT_TRUE(ws.fm_help.txt_help.text().contains("The file " + main + " has been created"));
}

TEST_F(DepthLas, UnitsWordsFollowTheOptionsWithoutTouchingAValue) {
    ws.fm_setup.ck_gen_las_type1.setChecked(true);
    struct Case {
        bool metric, ftHr, ppm;
        const char* strt;
        const char* rop;
        const char* tg;
        const char* firstRow;
    } cases[] = {
        // Metric keeps the minutes word for the rate even when it is feet an hour.
        {true, true, true, "STRT      .met  1000", "ROP       .min/met ", "TG        .ppm ",
         "1000\t20.000\t1200.00"},
        {false, true, false, "STRT      .ft   1000", "ROP       .ft/Hr ", "TG        .Units",
         "1000\t20.000\t12.00"},
    };
    for (const Case& c : cases) {
        ws.fm_setup.ck_metric.setChecked(c.metric);
        ws.fm_setup.ck_ROP_is_FtHr.setChecked(c.ftHr);
        ws.fm_setup.ck_GU_as_PPM.setChecked(c.ppm);
        run();
        const auto l = lines("well.7.las");
        SCOPED_TRACE(std::string(c.strt) + " " + c.rop);
        EXPECT_TRUE(l[5].startsWith(c.strt));
        EXPECT_TRUE(l[7].startsWith(c.metric ? "STEP      .met  1 " : "STEP      .ft   1 "));
        EXPECT_TRUE(l[29].startsWith(c.metric ? "Depth     .met " : "Depth     .ft "));
        EXPECT_TRUE(l[30].startsWith(c.rop));
        EXPECT_TRUE(l[31].startsWith(c.tg));
        EXPECT_TRUE(l[41].startsWith(c.ppm ? "TG2       .ppm " : "TG2       .Units"));
        const int ascii = static_cast<int>(l.indexOf("~ASCII"));
        ASSERT_GT(ascii, 0);
        EXPECT_TRUE(l[ascii + 1].startsWith(c.firstRow)) << l[ascii + 1].toStdString();
        EXPECT_EQ(l[ascii + 1].split('\t')[12], c.ppm ? "1200.000" : "12.00"); // TG2
    }
}

TEST_F(DepthLas, RangesOptionsAndTheLast48HoursWindow) {
    auto& s = ws.fm_setup;
    // A typed range with the first foot past the last: headers and no row.
    s.ck_use_depth_from_db.setChecked(false);
    s.txt_chart_mindepth.setText("2000");
    s.txt_chart_maxdepth.setText("1500");
    run();
    EXPECT_EQ(bytes("well.7.las"), "~ASCII\r\n") << "no full header without the 1.1 box";
    EXPECT_TRUE(bytes("well.7_GasOnly.las").endsWith("Gasses\r\n~ASCII\r\n"));

    // A typed range reaches one foot past its maximum; empty feet still write.
    s.txt_chart_mindepth.setText("1001");
    s.txt_chart_maxdepth.setText("1002");
    run();
    auto l = lines("well.7.las");
    ASSERT_EQ(l.size(), 4);
    EXPECT_EQ(l[1], kRow1001);
    EXPECT_TRUE(l[3].startsWith("1003\t0.000\t0.00\t")) << "foot 1003 is open: zeros";

    // Half feet repeat the whole foot; the gas only file has none.
    s.ck_use_depth_from_db.setChecked(true);
    s.ck_gen_half_ft_las.setChecked(true);
    run();
    l = lines("well.7.las");
    ASSERT_EQ(l.size(), 7);
    EXPECT_EQ(l[2], QByteArray(kRow1000).replace(0, 4, "1000.5"));
    EXPECT_EQ(lines("well.7_GasOnly.las").size(), 35);

    // The last 48 hours: foot 1001, closed exactly at the limit, is out.
    s.ck_gen_half_ft_las.setChecked(false);
    s.ck_gen_las48_file.setChecked(true);
    ws.Now = [] { return QDateTime(QDate(2026, 11, 3), QTime(6, 0, 24)); };
    run();
    EXPECT_EQ(lines("well.7_Last48.las").mid(1), QList<QByteArray>{kRow1002});
    EXPECT_EQ(lines("well.7.las").size(), 4) << "the main file has every foot";
}

TEST_F(DepthLas, DelimiterCValuesNamesAndAnOverlongApiNumber) {
    auto& s = ws.fm_setup;
    s.ck_gen_las_type1.setChecked(true);
    s.txt_APN_Number.setText("12345678901234567890");
    ws.products.Gdata_separator = " | ";
    s.txt_custom_wits_name[3].setText("");
    s.ck_add_timedate.setChecked(true);
    run();
    auto l = lines("well.7.las");
    EXPECT_TRUE(l[3].contains("SPACE")) << "the DLM line says SPACE whatever is used";
    EXPECT_EQ(l[21], "# Surface Coords:") << "no API line for 20 characters";
    const int ascii = static_cast<int>(l.indexOf("~ASCII"));
    EXPECT_EQ(l[ascii - 1], "#Depth | ROP | TG | C1 | C2 | C3 | iC4 | nC4 | iC5 | nC5 | C4 | C5 | "
                            "TG2 | GAMMA | O2 | CO2 | H2S | OILIND | Weight On Bit | Standpipe "
                            "Pressure | Rotary RPM |  | TimeDate");
    EXPECT_EQ(l[ascii - 2],
              "TIMEDATE  .Date                                      : Most Current Time And Date "
              "Of Ft Drilled");
    EXPECT_EQ(l[ascii - 3], "    .units                : ") << "an empty name stands as it is";
    EXPECT_TRUE(l[ascii + 1].endsWith(" | 0.000 | 11/01/2026 06:00:12"));

    // The C value options on foot 1001 (C1..nC5 8, 4, 4, 2, 2, 0, 0; peak
    // 20) with a gain of 2.
    ws.products.Gdata_separator = "\t";
    s.txt_cval_gain.setText("2");
    s.ck_add_timedate.setChecked(false);
    struct Case {
        forms::Control* option;
        const char* c;
    } cases[] = {
        {&s.op_cg_in_ppm, "1600\t800\t800\t400\t400\t0\t0\t600\t0"},
        {&s.op_cg_in_gu, "16.000\t8.000\t8.000\t4.000\t4.000\t0.000\t0.000\t6.0\t0.0"},
        {&s.op_cg_percent_sam, "0.160\t0.080\t0.080\t0.040\t0.040\t0.000\t0.000\t0.080\t0.000"},
    };
    for (const Case& c : cases) {
        for (auto* o : {&s.op_cg_in_ppm, &s.op_cg_in_gu, &s.op_cg_percent, &s.op_cg_percent_sam})
            o->setValue(o == c.option ? 1 : 0);
        run();
        l = lines("well.7.las");
        const auto cols = l[l.indexOf("~ASCII") + 2].split('\t');
        EXPECT_EQ(cols.mid(3, 9).join('\t'), c.c) << c.option->name().toStdString();
    }
    // No gas at all under percent: C1 takes 100 x 100 x gain.
    testkit::RawDb(job).exec("UPDATE OMBRI_DB_010 SET C1 = 0, C2 = 0, C3 = 0, IC4 = 0, NC4 = 0");
    s.op_cg_percent_sam.setValue(0);
    s.op_cg_percent.setValue(1);
    run();
    l = lines("well.7.las");
    EXPECT_EQ(l[l.indexOf("~ASCII") + 1].split('\t').mid(3, 9).join('\t'),
              "20000.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000\t0.000");
}
