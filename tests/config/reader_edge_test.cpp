// The reader on small files: single lines, uneven scale repairs, the TCP
// lines, short lines, line ends of other systems, and a missing file.
#include "config_fixture.h"
#include "text/numbers.h"

using cfgtest::Station;

namespace {

// The setup panel after reading text into a fresh workstation.
QStringList Differences(const Station& fresh, const Station& read) {
    QStringList out;
    const auto before = cfgtest::PanelState(fresh.ws.fm_setup);
    const auto after = cfgtest::PanelState(read.ws.fm_setup);
    for (int i = 0; i < before.size(); ++i)
        if (before[i] != after[i]) out << read.ws.fm_setup.controls()[i]->name();
    return out;
}

} // namespace

TEST(ConfigReader, AFileOfOnlyRopOnTurnsRopOnAndLeavesTheRest) {
    Station fresh, st;
    // Both panels after a load, so the colour labels agree.
    config::ShowCurveColors(fresh.ws);
    st.writeConfig("[ROP ON] \r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_TRUE(st.ws.fm_setup.ck_rop.checked());
    // The gas units box is written back from its scale, which no line
    // changed: the scale's start value.
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(),
              "0 to " + text::Str(fresh.ws.settings.GasScale.ScaleMax));
    EXPECT_EQ(Differences(fresh, st), QStringList({"txt_gas_units", "ck_rop"}));
    EXPECT_EQ(st.ws.rt.Grefresh_seconds, fresh.ws.rt.Grefresh_seconds);
    EXPECT_EQ(st.ws.rt.Gdata_separator, "\t");

    // And the pair is read both ways.
    st.writeConfig("[ROP OFF] \r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_FALSE(st.ws.fm_setup.ck_rop.checked());
}

TEST(ConfigReader, ScaleLinesAreRepairedUnevenly) {
    {
        Station st;
        st.writeConfig("[GU SCALE] 0 to 20000\r\n");
        config::ReadConfigFile(st.ws);
        const auto& s = st.ws.settings;
        EXPECT_EQ(s.GasScale.ScaleMax, 20000); // the gas high stays
        EXPECT_EQ(s.RopScale.ScaleMax, 10000); // the ROP high is what moves
        EXPECT_EQ(s.CValueScale.ScaleMax, 20000);
        EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "0 to 20000");
    }
    {
        Station st;
        st.writeConfig("[GU SCALE] -5 to 0.5\r\n");
        config::ReadConfigFile(st.ws);
        EXPECT_EQ(st.ws.settings.GasScale.ScaleMin, 0);
        EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 0.5);
        EXPECT_EQ(st.ws.settings.RopScale.ScaleMax, 1);
        EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "0 to 0.5");
    }
    {
        Station st;
        st.writeConfig("[ROP SCALE] 0 to 20000\r\n");
        config::ReadConfigFile(st.ws);
        EXPECT_EQ(st.ws.settings.RopScale.ScaleMin, 0.1);
        EXPECT_EQ(st.ws.settings.RopScale.ScaleMax, 600);
        EXPECT_EQ(st.ws.fm_setup.txt_rop_scale.text(), "0 to 20000");
    }
    {
        Station st;
        st.writeConfig("[GAMMA SCALE] 0 to 20000\r\n[WITS SCALE] 20000.4 to 99999.6\r\n");
        config::ReadConfigFile(st.ws);
        EXPECT_EQ(st.ws.settings.GammaScale.ScaleMin, 0.1);
        EXPECT_EQ(st.ws.settings.GammaScale.ScaleMax, 10000);
        EXPECT_EQ(st.ws.settings.WitsScale.ScaleMin, 10000);
        EXPECT_EQ(st.ws.settings.WitsScale.ScaleMax, 100000); // whole, not repaired
    }
    {
        // No "to": the line changes nothing, the box keeps its default.
        Station st;
        st.writeConfig("[ROP SCALE] 5 - 50\r\n");
        config::ReadConfigFile(st.ws);
        EXPECT_EQ(st.ws.fm_setup.txt_rop_scale.text(), "0 to 10");
        EXPECT_EQ(st.ws.settings.RopScale.ScaleMax, 10);
    }
}

TEST(ConfigReader, ShortLinesAreSkippedAndOnlyATagsOwnLengthIsCompared) {
    Station fresh, st;
    config::ShowCurveColors(fresh.ws);
    st.writeConfig("[H2\r\n[O2 O\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(Differences(fresh, st), QStringList({"txt_gas_units"}));

    // The older tags carry two blanks when written; any tail matches.
    st.writeConfig("[H2S ON]\r\n[O2 ON]  \r\n[CO2 ON] whatever\r\n[CG ON\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_TRUE(st.ws.fm_setup.ch_show_h2s.checked());
    EXPECT_TRUE(st.ws.fm_setup.ch_o2.checked());
    EXPECT_TRUE(st.ws.fm_setup.ch_co2.checked());
    EXPECT_FALSE(st.ws.fm_setup.ch_show_chromatograph.checked());
    // Tags are compared as written, case and all.
    st.writeConfig("[rop on] \r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_FALSE(st.ws.fm_setup.ck_rop.checked());
}

TEST(ConfigReader, TheLaterOfTwoLinesForOneBoxWins) {
    Station st;
    st.writeConfig("[VACFLOW ON] \r\n[VIEW VACFLOW OFF]\r\n[TEMP ON] \r\n[VIEW CASETEMP OFF]\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_FALSE(st.ws.fm_setup.ck_vac_flow.checked());
    EXPECT_FALSE(st.ws.fm_setup.ck_temp.checked());
    st.writeConfig("[VIEW VACFLOW OFF]\r\n[VACFLOW ON] \r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_TRUE(st.ws.fm_setup.ck_vac_flow.checked());
}

TEST(ConfigReader, TcpLinesOutOfOrderAndTheirOtherSpellings) {
    // The lines in their written order are read at start-up (see the
    // start-up test). The port line names the address read before it: the
    // other way round the box joins the address that stood before.
    Station late;
    late.writeConfig("[TCP PORT] 2301\r\n[TCP IP] 10.0.0.9\r\n");
    config::ReadConfigFile(late.ws);
    EXPECT_EQ(late.ws.rt.Gtcp_host, "10.0.0.9");
    EXPECT_EQ(late.ws.fm_setup.txt_TCP_ip_port.text(), ":2301");
    EXPECT_FALSE(late.ws.rt.Guse_tcp);

    // "[USE ETHERNET]" says the same as "[USE TCP]"; "[DO NOT USE TCP]" is
    // not read.
    Station eth;
    eth.ws.fm_setup.ck_Use_TCP.setValue(1);
    eth.writeConfig("[DO NOT USE TCP]\r\n");
    config::ReadConfigFile(eth.ws);
    EXPECT_TRUE(eth.ws.fm_setup.ck_Use_TCP.checked());
    Station eth2;
    eth2.writeConfig("[USE ETHERNET]\r\n");
    config::ReadConfigFile(eth2.ws);
    EXPECT_TRUE(eth2.ws.rt.Guse_tcp);
    EXPECT_TRUE(eth2.ws.fm_setup.ck_Use_TCP.checked());
}

TEST(ConfigReader, LinesMayEndInLfOrCrAlone) {
    Station st;
    st.writeConfig("[USE TCP]\n[TCP IP] 127.0.0.1\r[TCP PORT] 10023\n[METRIC ON]");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.fm_setup.txt_TCP_ip_port.text(), "127.0.0.1:10023");
    EXPECT_TRUE(st.ws.rt.Guse_tcp);
    EXPECT_TRUE(st.ws.fm_setup.ck_metric.checked());
}

TEST(ConfigReader, SelectorsAndValuesDriveWhatTheirTagsName) {
    Station st;
    st.writeConfig("[DATA SEP USING] ;;\r\n[DATA SEP SEL] 3\r\n[OIL IND] 2\r\n[WITS ITEM] 2\r\n"
                   "[SERIALNUMBER] 0042x\r\n[REFRESH TIMER SECONDS] 4\r\n"
                   "[AUTOTALLY MINUTES BETWEEN SAVES] 30\r\n[LAS C VALUES IN PPM]\r\n"
                   "[ROTATE CHART ON] \r\n[C2 COLOR] 255\r\n[ROP INCH PER 100 FT] 12\r\n");
    config::ReadConfigFile(st.ws);
    auto& p = st.ws.fm_setup;
    EXPECT_EQ(p.op_delim.value(), 3);
    EXPECT_EQ(st.ws.rt.Gdata_separator, ";;");
    EXPECT_EQ(p.op1_oil_ind.value(), 2);
    EXPECT_EQ(p.lbl_formula.caption(), "(C1 + C2) / (C3 + IC4 + NC4)");
    EXPECT_EQ(p.op_wits_item.value(), 2);
    EXPECT_EQ(st.ws.rt.Gwits_column, 2);
    EXPECT_EQ(st.ws.rt.Gserial_number, "42");
    // The control box's floor of 10 seconds.
    EXPECT_EQ(st.ws.rt.Grefresh_seconds, 10);
    EXPECT_EQ(st.ws.fm_Gas_Chart.txt_refresh_timer.text(), "10");
    EXPECT_EQ(p.txt_autotally_minutes.text(), "30");
    EXPECT_EQ(st.ws.settings.stats_countdown, 1800);
    EXPECT_EQ(p.lbl_Stats_Countdown.caption(), "1800");
    EXPECT_TRUE(p.op_cg_in_ppm.checked());
    EXPECT_FALSE(p.op_cg_in_gu.checked());
    EXPECT_TRUE(p.ck_rotate_chart.checked());
    EXPECT_TRUE(st.ws.settings.Flipped);
    EXPECT_EQ(st.ws.settings.ColorC2, 255);
    EXPECT_EQ(p.lbl_c2_color.backColor(), 255);
    EXPECT_EQ(p.ck_c2.foreColor(), 255);
    // Out of the range the box allows: 1 inch per 100 feet.
    EXPECT_EQ(p.txt_ROP_in_per_100ft.text(), "1.0");
    EXPECT_DOUBLE_EQ(st.ws.settings.RopTwipsPerFoot, 14.4);

    // An element the option group does not have changes nothing.
    st.writeConfig("[WITS ITEM] 9\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.rt.Gwits_column, 2);
}

TEST(ConfigReader, AMissingFileLeavesEveryDefault) {
    Station fresh, st;
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(cfgtest::PanelState(st.ws.fm_setup), cfgtest::PanelState(fresh.ws.fm_setup));
    EXPECT_FALSE(st.folder.exists(config::kConfigFileName));
}

TEST(ConfigFileHelpers, ExistsNameCheckAndErrorLog) {
    Station st;
    st.writeConfig("x");
    EXPECT_TRUE(config::FileExists(st.ws, config::kConfigFileName));
    EXPECT_TRUE(config::FileExists(st.ws, st.configPath()));
    EXPECT_FALSE(config::FileExists(st.ws, "nothing.txt"));
    EXPECT_FALSE(config::FileExists(st.ws, st.folder.path())); // a folder is no file
    for (const char* name : {"good.las", "bad!@#.las", "", "a:b"})
        EXPECT_FALSE(config::FileNameCheck(name));
    config::AppendErrLog(st.ws, "first");
    config::AppendErrLog(st.ws, "second");
    EXPECT_EQ(st.folder.read("ERR_LOG.TXT"), "first\r\nsecond\r\n");
}
