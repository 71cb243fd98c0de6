// The reader on small files: single lines, uneven scale repairs, the TCP
// lines, short lines and line ends of other systems.
#include "config_fixture.h"
#include "text/numbers.h"

using cfgtest::Station;

namespace {

// The names of the setup panel's controls that reading changed.
QStringList Differences(const Station& fresh, const Station& read) {
    QStringList out;
    const auto before = cfgtest::PanelState(fresh.ws.fm_setup);
    const auto after = cfgtest::PanelState(read.ws.fm_setup);
    for (int i = 0; i < before.size(); ++i)
        if (before[i] != after[i]) out << read.ws.fm_setup.controls()[i]->name();
    return out;
}

} // namespace

TEST(ConfigReader, OneLineChangesItsBoxAloneAndShortLinesNothing) {
    Station fresh, st;
    // Both panels after a load, so the colour labels agree.
    config::ShowCurveColors(fresh.ws);
    st.writeConfig("[ROP ON] \r\n");
    config::ReadConfigFile(st.ws);
    // The gas units box is written back from its scale, which no line
    // changed: the scale's start value.
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(),
              "0 to " + text::Str(fresh.ws.settings.GasScale.ScaleMax));
    EXPECT_EQ(Differences(fresh, st), QStringList({"txt_gas_units", "ck_rop"}));
    EXPECT_EQ(st.ws.products.Gdata_separator, "\t");

    Station cut;
    cut.writeConfig("[H2\r\n[O2 O\r\n[CG ON\r\n");
    config::ReadConfigFile(cut.ws);
    EXPECT_EQ(Differences(fresh, cut), QStringList({"txt_gas_units"}));

    // Only a tag's own length is compared, case and all.
    cut.writeConfig("[CO2 ON] whatever\r\n[rop on] \r\n");
    config::ReadConfigFile(cut.ws);
    EXPECT_TRUE(cut.ws.fm_setup.ch_co2.checked());
    EXPECT_FALSE(cut.ws.fm_setup.ck_rop.checked());
}

TEST(ConfigReader, ScaleLinesAreRepairedUnevenly) {
    using config::Settings;
    using forms::FmSetup;
    // Each line read alone into a fresh workstation.
    const struct {
        const char* line;
        config::ChartScale Settings::*scale;
        double min, max;
        forms::Control FmSetup::*box;
        const char* shown;
    } rows[] = {
        // The gas high stays, the ROP high is what moves; the gas units box
        // is written back from its scale.
        {"[GU SCALE] 0 to 20000", &Settings::GasScale, 0, 20000, &FmSetup::txt_gas_units,
         "0 to 20000"},
        {"[GU SCALE] 0 to 20000", &Settings::RopScale, 0, 10000, nullptr, nullptr},
        {"[GU SCALE] -5 to 0.5", &Settings::RopScale, 0, 1, &FmSetup::txt_gas_units, "0 to 0.5"},
        // The other boxes keep the text as it was read.
        {"[ROP SCALE] 0 to 20000", &Settings::RopScale, 0.1, 600, &FmSetup::txt_rop_scale,
         "0 to 20000"},
        // Whole numbers, the high not repaired.
        {"[WITS SCALE] 20000.4 to 99999.6", &Settings::WitsScale, 10000, 100000, nullptr, nullptr},
        // No "to": the line changes nothing, the box keeps its default.
        {"[ROP SCALE] 5 - 50", &Settings::RopScale, 0, 10, &FmSetup::txt_rop_scale, "0 to 10"},
    };
    for (const auto& r : rows) {
        Station st;
        st.writeConfig(QByteArray(r.line) + "\r\n");
        config::ReadConfigFile(st.ws);
        EXPECT_EQ((st.ws.settings.*r.scale).ScaleMin, r.min) << r.line;
        EXPECT_EQ((st.ws.settings.*r.scale).ScaleMax, r.max) << r.line;
        if (r.box) {
            EXPECT_EQ((st.ws.fm_setup.*r.box).text(), r.shown) << r.line;
        }
    }
}

TEST(ConfigReader, TheLaterOfTwoLinesForOneBoxWins) {
    Station st;
    st.writeConfig("[VACFLOW ON] \r\n[VIEW VACFLOW OFF]\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_FALSE(st.ws.fm_setup.ck_vac_flow.checked());
    st.writeConfig("[VIEW VACFLOW OFF]\r\n[VACFLOW ON] \r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_TRUE(st.ws.fm_setup.ck_vac_flow.checked());
}

TEST(ConfigReader, TcpLinesWithTheLineEndsOfOtherSystemsAndOutOfOrder) {
    // "[USE ETHERNET]" says the same as "[USE TCP]"; a line may end in LF
    // or CR alone, or not at all.
    Station st;
    st.writeConfig("[USE ETHERNET]\n[TCP IP] 127.0.0.1\r[TCP PORT] 10023\n[METRIC ON]");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.fm_setup.txt_TCP_ip_port.text(), "127.0.0.1:10023");
    EXPECT_TRUE(st.ws.link.Guse_tcp);
    EXPECT_TRUE(st.ws.fm_setup.ck_metric.checked());

    // The port line joins the address read before it.
    Station late;
    late.writeConfig("[TCP PORT] 2301\r\n[TCP IP] 10.0.0.9\r\n");
    config::ReadConfigFile(late.ws);
    EXPECT_EQ(late.ws.link.Gtcp_host, "10.0.0.9");
    EXPECT_EQ(late.ws.fm_setup.txt_TCP_ip_port.text(), ":2301");
}

TEST(ConfigReader, ValuesAreConvertedAndChoicesDriveWhatTheyName) {
    Station st;
    st.writeConfig("[OIL IND] 2\r\n[WITS ITEM] 2\r\n[SERIALNUMBER] 0042x\r\n"
                   "[REFRESH TIMER SECONDS] 4\r\n[AUTOTALLY MINUTES BETWEEN SAVES] 30\r\n"
                   "[ZOOM VIEW] lots\r\n");
    config::ReadConfigFile(st.ws);
    auto& p = st.ws.fm_setup;
    EXPECT_EQ(p.lbl_formula.caption(), "(C1 + C2) / (C3 + IC4 + NC4)");
    EXPECT_EQ(st.ws.chart.Gwits_column, 2);
    EXPECT_EQ(st.ws.packet.Gserial_number, "42");
    EXPECT_EQ(st.ws.settings.Zoom, 0);
    // The file's value as it stands: the floor of 10 is the control box's.
    EXPECT_EQ(st.ws.chart.Grefresh_seconds, 4);
    EXPECT_EQ(st.ws.fm_Gas_Chart.txt_refresh_timer.text(), "4");
    EXPECT_EQ(st.ws.settings.stats_countdown, 1800);

    // An element the option group does not have changes nothing.
    st.writeConfig("[WITS ITEM] 9\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.chart.Gwits_column, 2);
}
