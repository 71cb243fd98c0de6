// The settings file through a whole start-up and exit: the lines the run
// script writes select the simulator over TCP, the second read wins, and the
// exit writes a file that selects the same again.
#include "acquisition/startup.h"
#include "config_fixture.h"

using cfgtest::Station;

namespace {

// What the run script puts in the program folder before the first start.
const char* const kRunScriptLines = "[USE TCP]\r\n"
                                    "[TCP IP] 127.0.0.1\r\n"
                                    "[TCP PORT] 10023\r\n";

void ExpectSimulatorSelected(const Workstation& ws) {
    EXPECT_TRUE(ws.link.Guse_tcp);
    EXPECT_EQ(ws.link.Gtcp_host, "127.0.0.1");
    EXPECT_EQ(ws.link.Gtcp_port, "10023");
    EXPECT_TRUE(ws.fm_setup.ck_Use_TCP.checked());
    EXPECT_EQ(ws.fm_setup.txt_TCP_ip_port.text(), "127.0.0.1:10023");
}

} // namespace

TEST(ConfigAtStartUp, TheRunScriptsLinesSelectTheSimulatorAndSurviveTheExit) {
    Station st;
    st.writeConfig(QByteArray(kRunScriptLines) + "[GU SCALE] 0 to 800\r\n[ROP ON] \r\n");
    ASSERT_TRUE(acq::Form_Load(st.ws));
    ExpectSimulatorSelected(st.ws);
    EXPECT_FALSE(st.ws.loop.Gstarting_up);
    // The gas units scale of the file, after the start-up's own defaults and
    // the gas units handler at its end.
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 800);
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "0 to 800");
    EXPECT_TRUE(st.ws.fm_setup.ck_rop.checked());
    // Paths the file does not name: the start-up's statistics file under
    // DB_CUE, and the autogen folder, never kept, the program folder.
    EXPECT_EQ(st.ws.fm_setup.txt_stats_filename.text(), st.folder.file("DB_CUE/AUTOTALLY.TXT"));
    EXPECT_EQ(st.ws.fm_setup.txt_autogen_dir.text(), st.folder.path());

    // The exit writes the file before it asks; the answer No keeps running.
    st.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(acq::Form_Unload(st.ws));
    const QByteArray written = st.readConfig();
    EXPECT_TRUE(written.contains("\r\n[USE TCP]\r\n"));
    EXPECT_TRUE(written.contains("\r\n[TCP IP] 127.0.0.1\r\n"));
    EXPECT_TRUE(written.contains("\r\n[TCP PORT] 10023\r\n"));

    Station next;
    next.writeConfig(written);
    config::ReadConfigFile(next.ws);
    ExpectSimulatorSelected(next.ws);
    EXPECT_TRUE(next.ws.fm_setup.ck_rop.checked());
}
