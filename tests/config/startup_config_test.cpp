// The settings file through a whole start-up and exit: the lines the run
// script writes select the simulator over TCP and survive the exit.
#include "acquisition/startup.h"
#include "config_fixture.h"

using cfgtest::Station;

namespace {

void ExpectSimulatorSelected(const Workstation& ws) {
    EXPECT_TRUE(ws.link.Guse_tcp);
    EXPECT_EQ(ws.link.Gtcp_host, "127.0.0.1");
    EXPECT_EQ(ws.link.Gtcp_port, "10023");
    EXPECT_TRUE(ws.fm_setup.ck_Use_TCP.checked());
}

} // namespace

TEST(ConfigAtStartUp, TheRunScriptsLinesSelectTheSimulatorAndSurviveTheExit) {
    Station st;
    st.writeConfig("[USE TCP]\r\n[TCP IP] 127.0.0.1\r\n[TCP PORT] 10023\r\n"
                   "[GU SCALE] 0 to 800\r\n[ROP ON] \r\n");
    ASSERT_TRUE(acq::Form_Load(st.ws));
    ExpectSimulatorSelected(st.ws);
    // The file's gas units scale outlives the start-up's own defaults and
    // the gas units handler at its end.
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 800);
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "0 to 800");
    // A path the file does not name: the statistics file under DB_CUE.
    EXPECT_EQ(st.ws.fm_setup.txt_stats_filename.text(), st.folder.file("DB_CUE/AUTOTALLY.TXT"));

    // The exit writes the file before it asks; the answer No keeps running.
    st.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(acq::Form_Unload(st.ws));
    Station next;
    next.writeConfig(st.readConfig());
    config::ReadConfigFile(next.ws);
    ExpectSimulatorSelected(next.ws);
    EXPECT_TRUE(next.ws.fm_setup.ck_rop.checked());
}
