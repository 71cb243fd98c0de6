// The setup panel's handlers, and the start-up guard over all of them.
#include "acquisition/tick_table.h"
#include "config/setup_handlers.h"
#include "config_fixture.h"

using cfgtest::Station;

namespace {

struct Panel : Station {
    Panel() { ws.loop.Gstarting_up = false; }
    forms::FmSetup& p = ws.fm_setup;
    config::Settings& s = ws.settings;
};

} // namespace

TEST(SetupScales, EachBoxHasItsOwnLimitsAndTextWithoutToPutsTheFallbackBack) {
    Panel t;
    t.ws.chart.Grefresh_seconds = 200;
    struct ScaleBox {
        forms::Control& box;
        void (*commit)(Workstation&);
        const config::ChartScale& scale;
        const char* fallback;
    };
    const ScaleBox gas{t.p.txt_gas_units, &config::txt_gas_units_Change, t.s.GasScale, "0 to 300"};
    const ScaleBox rop{t.p.txt_rop_scale, &config::txt_rop_scale_Commit, t.s.RopScale, "0 to 10"};
    const ScaleBox gamma{t.p.txt_lag_gamma_scale, &config::txt_lag_gamma_scale_Commit,
                         t.s.GammaScale, "0 to 500"};
    const ScaleBox oil{t.p.txt_oil_ind_scale, &config::txt_oil_ind_scale_Commit, t.s.OilIndScale,
                       "0 to 500"};
    const ScaleBox wits{t.p.txt_wits_scale, &config::txt_wits_scale_Commit, t.s.WitsScale,
                        "0 to 500"};
    // Text without "to" is refused with a box, the box gets its fallback and
    // the scale keeps its start values; the rest is taken within each box's
    // own limits (the WITS scale's whole numbers, a tie to the even one), and
    // no box rewrites what was typed.
    const struct {
        const ScaleBox& b;
        const char* typed;
        double min, max;
    } rows[] = {{gas, "100-500", 0, 150},        {gas, "-3 to 20000", 0, 10000},
                {gas, "10 to 0.2", 10, 1},       {rop, "0 to 20000", 0.1, 600},
                {rop, "2 to 10000", 2, 10000},   {gamma, "0 to 20000", 0.1, 10000},
                {oil, "-5 to 20000", -5, 20000}, {wits, "-3.6 to 2.5", 0, 2},
                {wits, "7.5 to 1000.7", 8, 1001}};
    for (const auto& r : rows) {
        const bool refused = !QString(r.typed).contains("to");
        r.b.box.setText(r.typed);
        t.dialogs.boxes.clear();
        t.ws.chart.Grefresh_count = 3;
        r.b.commit(t.ws);
        EXPECT_EQ(r.b.scale.ScaleMin, r.min) << r.typed;
        EXPECT_EQ(r.b.scale.ScaleMax, r.max) << r.typed;
        EXPECT_EQ(r.b.box.text(), refused ? r.b.fallback : r.typed);
        EXPECT_EQ(t.ws.chart.Grefresh_count, 200);
        if (!refused) {
            EXPECT_TRUE(t.dialogs.boxes.empty());
            if (&r.b == &gas) {
                EXPECT_EQ(t.s.CValueScale.ScaleMax, r.max);
            }
            continue;
        }
        ASSERT_EQ(t.dialogs.boxes.size(), 1u);
        EXPECT_EQ(t.dialogs.boxes[0].title, "SCALE SET ERROR");
        EXPECT_EQ(t.dialogs.boxes[0].text,
                  "You must use the word \"to\" to seperate the two numbers");
    }
}

TEST(SetupScales, TheGasUnitsHandlerAtTheEndOfStartUpLetsTheChartDraw) {
    Panel t;
    t.ws.chart.Gchart_busy = true;
    config::txt_gas_units_Change(t.ws);
    EXPECT_FALSE(t.ws.chart.Gchart_busy);
    // While a draw runs its flags are left alone.
    t.ws.chart.Gchart_busy = true;
    t.ws.chart.Gchart_drawing = true;
    config::txt_gas_units_Change(t.ws);
    EXPECT_TRUE(t.ws.chart.Gchart_busy);
}

TEST(SetupScales, RopInchesPer100FeetOutsideItsRangeBecomesOne) {
    Panel t;
    t.ws.chart.Grefresh_seconds = 90;
    const struct {
        const char* typed;
        const char* shown;
        double inches, twips;
    } cases[] = {{"0.4", "1.0", 1, 14.4},
                 {"10.5", "1.0", 1, 14.4},
                 {"0.5", "0.5", 0.5, 7.2},
                 {"10", "10", 10, 144}};
    for (const auto& c : cases) {
        t.p.txt_ROP_in_per_100ft.setText(c.typed);
        config::txt_ROP_in_per_100ft_Commit(t.ws);
        EXPECT_EQ(t.p.txt_ROP_in_per_100ft.text(), c.shown) << c.typed;
        EXPECT_DOUBLE_EQ(t.s.RopInchesPer100Ft, c.inches) << c.typed;
        EXPECT_DOUBLE_EQ(t.s.RopTwipsPerFoot, c.twips) << c.typed;
    }
    EXPECT_EQ(t.ws.chart.Grefresh_count, 90);
}

TEST(SetupGains, ChromatographGainIsHeldBetween100And200000) {
    Panel t;
    const struct {
        const char* typed;
        double gain;
        const char* shown;
    } cases[] = {{"300000", 200000, "200000"}, {"0", 100, "100"}, {"0.5", 0.5, "0.5"}};
    for (const auto& c : cases) {
        t.p.txt_cg_gain.setText(c.typed);
        config::txt_cg_gain_Commit(t.ws);
        EXPECT_EQ(t.s.CgVisibleGain, c.gain) << c.typed;
        EXPECT_EQ(t.p.txt_cg_gain.text(), c.shown) << c.typed;
    }
    // The gases' gains take what is typed, without a limit.
    t.p.txt_ic4_gain.setText("-250.5");
    config::txt_gas_gain_Commit(t.ws, 3);
    EXPECT_EQ(t.s.IC4Gain, -250.5);
    EXPECT_EQ(t.s.C1Gain, 1);
    // The C values gain goes back to "1.00" at 0.0001 or less.
    t.p.txt_cval_gain.setText("0.0001");
    config::txt_cval_gain_Commit(t.ws);
    EXPECT_EQ(t.p.txt_cval_gain.text(), "1.00");
    t.p.txt_cval_gain.setText("0.00011");
    config::txt_cval_gain_Commit(t.ws);
    EXPECT_EQ(t.p.txt_cval_gain.text(), "0.00011");
}

TEST(SetupLineLag, TheBoxShowsOneWhileTheVariableKeepsWhatWasTyped) {
    Panel t;
    t.p.txt_surface_lag.setText("0.5");
    config::txt_surface_lag_Change(t.ws);
    EXPECT_EQ(t.ws.depth.Gline_lag_seconds, 0.5);
    EXPECT_EQ(t.p.txt_surface_lag.text(), "1");
    config::txt_surface_lag_Change(t.ws); // the next key
    EXPECT_EQ(t.ws.depth.Gline_lag_seconds, 1);
}

TEST(SetupWords, MetricSwitchesTheViewerWordsAndNoNumber) {
    Panel t;
    t.ws.more_data.lbl_DrillDepth.setCaption("1234.5");
    const auto& depthFrame = t.ws.more_data.frameOf("lbl_DrillDepth");
    t.p.ck_metric.setValue(1);
    config::ck_metric_Click(t.ws);
    EXPECT_EQ(depthFrame.caption(), "Drill Depth In Meters");
    EXPECT_EQ(t.p.ck_drill_off.caption(),
              "Drill Off / Drilling Break\r\nNumber Of Meters With Less Than ROP Value");
    EXPECT_EQ(t.ws.more_data.lbl_DrillDepth.caption(), "1234.5");
    t.p.ck_metric.setValue(0);
    config::ck_metric_Click(t.ws);
    EXPECT_EQ(depthFrame.caption(), "Drill Depth In Feet");
}

TEST(SetupChoices, SeparatorAndWitsColumnFollowTheirOptions) {
    Panel t;
    const char* const want[] = {"\t", ",", " "};
    for (int i = 0; i < 3; ++i) {
        config::op_delim_Click(t.ws, i);
        EXPECT_EQ(t.ws.products.Gdata_separator, want[i]);
        EXPECT_EQ(t.p.op_delim.value(), i);
    }
    t.p.txt_delim.setText("");
    config::op_delim_Click(t.ws, 3);
    EXPECT_EQ(t.ws.products.Gdata_separator, "");
    t.p.txt_delim.setText(";");
    config::op_delim_Click(t.ws, 0);
    config::txt_delim_Change(t.ws);
    EXPECT_EQ(t.p.op_delim.value(), 3);
    EXPECT_EQ(t.ws.products.Gdata_separator, ";");

    config::op_wits_item_Click(t.ws, 2);
    EXPECT_EQ(t.ws.chart.Gwits_column, 2);
}

TEST(SetupColours, APickSetsTheCurveTheLabelAndTheBoxCancelLeavesThem) {
    Panel t;
    t.dialogs.colors.push_back(0x00AABB);
    config::lbl_color_Click(t.ws, 2);
    ASSERT_EQ(t.dialogs.boxes.size(), 1u);
    EXPECT_EQ(t.dialogs.boxes[0].title, "SELECT New Color");
    EXPECT_EQ(t.s.ColorC3, 0x00AABB);
    EXPECT_EQ(t.p.lbl_c3_color.backColor(), 0x00AABB);
    EXPECT_EQ(t.p.ck_c3.foreColor(), 0x00AABB);

    t.dialogs.colors.push_back(std::nullopt);
    config::lbl_color_Click(t.ws, 2);
    EXPECT_EQ(t.s.ColorC3, 0x00AABB);
}

TEST(SetupGuard, WhileStartingUpTheChangeHandlersDoNothing) {
    Station st;
    ASSERT_TRUE(st.ws.loop.Gstarting_up);
    auto& p = st.ws.fm_setup;
    const config::Settings before = st.ws.settings;
    p.txt_gas_units.setText("bad");
    p.txt_rop_scale.setText("0 to 20000");
    p.txt_cg_gain.setText("0");
    p.txt_surface_lag.setText("0.5");
    p.txt_ROP_in_per_100ft.setText("50");
    p.txt_delim.setText("|");
    p.ck_metric.setValue(1);
    for (auto* handler :
         {&config::txt_gas_units_Change, &config::txt_rop_scale_Commit, &config::txt_cg_gain_Commit,
          &config::txt_surface_lag_Change, &config::txt_ROP_in_per_100ft_Commit,
          &config::txt_delim_Change, &config::ck_metric_Click})
        handler(st.ws);
    config::op_delim_Click(st.ws, 1);
    config::op_wits_item_Click(st.ws, 0);
    // One check a handler.
    EXPECT_TRUE(st.dialogs.boxes.empty());
    EXPECT_EQ(p.txt_ROP_in_per_100ft.text(), "50");
    EXPECT_EQ(st.ws.depth.Gline_lag_seconds, 120);
    EXPECT_EQ(st.ws.products.Gdata_separator, "\t");
    EXPECT_EQ(st.ws.chart.Gwits_column, 4);
    EXPECT_EQ(st.ws.settings.RopScale.ScaleMax, before.RopScale.ScaleMax);
    EXPECT_EQ(st.ws.settings.CgVisibleGain, before.CgVisibleGain);
    EXPECT_EQ(st.ws.more_data.frameOf("lbl_DrillDepth").caption(), "Drill Depth In Feet");
}

TEST(SetupLoad, LoadFillsTheReportHoursAlarmTimeAndColours) {
    Panel t;
    t.s.ColorIC4 = 0x0000FE;
    config::fm_setup_Load(t.ws);
    EXPECT_EQ(t.p.cmb_Report_Time.items().size(), 24);
    EXPECT_EQ(t.p.cmb_Report_Time.text(), "05:00");
    EXPECT_EQ(t.p.txt_al_time.text(), "14:07:09");
    EXPECT_EQ(t.p.txt_al_date.text(), "05-Mar-2024");
    EXPECT_EQ(t.p.ck_ic4.foreColor(), 0x0000FE);
}
