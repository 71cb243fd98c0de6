// The hour block reader over real job files.
#include "chart_fixture.h"

#include <cmath>

namespace charttest {
namespace {

using HourBlockTest = ChartTest;

TEST_F(HourBlockTest, EmptyTableSaysSoAndLeavesNoRows) {
    open();
    readFrom(0);
    EXPECT_EQ(ws.chart.BlockCount, 0);
    EXPECT_TRUE(messages().contains("The data base is empty"));
}

// A shorter newest hour is passed over and the hour before shows instead.
TEST_F(HourBlockTest, NewestHourShowsOnlyOnceItHasFiftyRecords) {
    struct Case {
        int newest;       // records in the newest hour (07:00 on)
        int expectRows;   // rows of the first block read
        QString expectHr; // hour of its newest row
    } cases[] = {{49, 600, "06"}, {50, 50, "07"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.newest);
        clock = QDateTime(QDate(2026, 11, 2), QTime(5, 59, 54));
        packet = 1;
        testkit::RawDb(path).exec("DELETE FROM OMBRI_DB_010");
        run(1);            // 05:59:54, the older hour's last record
        run(600);          // 06:00:00 .. 06:59:54
        run(c.newest + 1); // 07:00:00 on; the newest is left to the writer
        open();
        readFrom(ws.chart.ChartTopRecord);
        EXPECT_EQ(ws.chart.BlockCount, c.expectRows);
        EXPECT_EQ(ws.chart.block.hour_TIME_TXT[1].left(2), c.expectHr);
        // The pointer is left on the newest record of the next older block.
        EXPECT_EQ(ws.chart.block.hour_TIME_TXT[c.expectRows].left(2),
                  c.expectHr == "07" ? "06" : "05");
    }
}

TEST_F(HourBlockTest, CrowdedHourIsCutAt1400RowsAndGoesOnInTheSameHour) {
    // A record every two seconds: 1800 in the hour.
    run(1800, {}, 2);
    run(60, {}, 2);
    open();
    readFrom(1800 - 1);
    EXPECT_EQ(ws.chart.BlockCount, 1400);
    // 1400 rows two seconds apart span 46 whole minutes of the hour.
    EXPECT_EQ(ws.chart.BlockMinutes, 46);
    // The cut leaves the pointer on the last row read: the next block
    // starts with it again.
    EXPECT_EQ(ws.chart.HourPointer, 1799 - 1399);
    readFrom(ws.chart.HourPointer);
    // The rest of the hour, up to the start of the table.
    EXPECT_EQ(ws.chart.BlockCount, 401);
    EXPECT_EQ(ws.chart.HourPointer, -1);
}

TEST_F(HourBlockTest, ValuesAreCleanedOnTheirWayIn) {
    // Oldest first in the table; the block has them newest first.
    struct Row {
        double depth, volts, temp, gas, bit;
    } rows[] = {
        {50000, 13.6, 150, 20000, 60000},
        {49990, 10110, 10250, 100, 900},
        {1000, 13.5, 80, 50, 1200},
    };
    for (const Row& r : rows)
        add({next()
                 .set("DEPTH", r.depth)
                 .set("VOLTS", r.volts)
                 .set("TEMP", r.temp)
                 .set("GAS_UNITS", r.gas)
                 .set("BIT_DEPTH", r.bit)});
    auto& s = ws.fm_setup;
    for (auto* box : {&s.ck_dc_volts, &s.ck_ac_volts, &s.ck_temp, &s.ck_hrm_temp, &s.ch_show_bd})
        box->setChecked(true);
    open();
    readFrom(2);
    const auto& b = ws.chart.block;
    ASSERT_EQ(ws.chart.BlockCount, 3);
    const struct {
        const char* what;
        const std::vector<double>& got;
        double want[3];
    } checks[] = {
        {"depth: above 49990 takes the row before", b.hour_DEPTH, {1000, 49990, 49990}},
        {"bit depth: above 49990 is 50000", b.hour_BIT_DEPTH, {1200, 900, 50000}},
        {"gas units capped at 10000", b.hour_GAS_UNITS, {50, 100, 10000}},
        {"DC volts keep the first quantity", b.hour_DC_VOLTS, {13.5, 13.5, 13.6}},
        {"AC volts keep the second", b.hour_AC_VOLTS, {13.5, 110, 110}},
        {"temperature capped at 200", b.hour_TEMP, {80, 80, 150}},
        {"HRM temperature", b.hour_HRM_TEMP, {80, 200, 200}},
    };
    for (const auto& c : checks)
        for (int i = 0; i < 3; ++i) EXPECT_DOUBLE_EQ(c.got[i], c.want[i]) << c.what << " row " << i;
    EXPECT_EQ(ws.chart.BlockMaxDepth, 49990);
}

TEST_F(HourBlockTest, ANegativeDepthOnTheNewestRowIsAReadError) {
    add({next(), next().set("DEPTH", -5.0), next()});
    open();
    readFrom(1);
    EXPECT_TRUE(messages().contains("DB Gas Chart Rd Err: ")) << messages().toStdString();
    EXPECT_TRUE(ws.db.Gdb_error);
    // The marks are put back at the newest record.
    EXPECT_EQ(ws.chart.HourPointer, 1);
}

TEST_F(HourBlockTest, ComponentsAndOilIndicators) {
    struct Case {
        int oil;
        std::array<double, 5> gases;
        double gas;
        std::array<double, 5> wantC;
        double wantOil;
    } cases[] = {
        // No components: all the gas is C1.
        {0, {0, 0, 0, 0, 0}, 100, {100, 1e-6, 1e-6, 1e-6, 1e-6}, 0},
        // Components are shares of the gas units.
        {1, {50, 20, 10, 5, 5}, 180, {100, 40, 20, 10, 10}, 40.0 / 100},
        {2, {50, 20, 10, 5, 5}, 90, {50, 20, 10, 5, 5}, 70.0 / 20},
        {3, {50, 20, 10, 5, 5}, 90, {50, 20, 10, 5, 5}, 100 * 40.0 / 90},
        {4, {50, 20, 10, 5, 5}, 90, {50, 20, 10, 5, 5}, 10.0 / 10},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.oil);
        testkit::RawDb(path).exec("DELETE FROM OMBRI_DB_010");
        const char* names[5] = {"C1", "C2", "C3", "IC4", "NC4"};
        Rec r = next();
        for (int g = 0; g < 5; ++g) r.set(names[g], c.gases[g]);
        r.set("GAS_UNITS", c.gas);
        add({r, r, r});
        ws.fm_setup.op1_oil_ind.setValue(c.oil);
        open();
        readFrom(ws.chart.LastRecord);
        for (int g = 0; g < 5; ++g)
            EXPECT_NEAR(ws.chart.block.hour_C[g][0], c.wantC[g], 1e-9) << names[g];
        if (c.oil) {
            EXPECT_NEAR(ws.chart.block.hour_OIL_IND[0], c.wantOil, 1e-9);
        }
    }
}

// Curves switched off are not read, and their scales stay where they were.
TEST_F(HourBlockTest, OnlyTickedCurvesAreRead) {
    run(3, [](Rec& r, int) { r.set("H2S", 45.0).set("KW7001", 7.0); });
    open();
    for (bool ticked : {false, true}) {
        SCOPED_TRACE(ticked);
        ws.fm_setup.ch_show_h2s.setChecked(ticked);
        ws.fm_setup.ck_Show_Custom_Wits[0].setChecked(ticked);
        readFrom(2);
        EXPECT_EQ(ws.chart.block.hour_WITS_custom[0][0], ticked ? 7 : 0);
        // One step of 10 a record, however large the excess.
        EXPECT_EQ(ws.chart.scales.H2S.ScaleMax, ticked ? 40 : 10);
    }
}

} // namespace
} // namespace charttest
