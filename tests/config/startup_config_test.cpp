// The settings file through a whole start-up and exit. That its link lines
// reach the simulator and outlive the exit is the program suite's
// (program_test); here what the start-up itself could overwrite.
#include "acquisition/startup.h"
#include "config_fixture.h"

using cfgtest::Station;

TEST(ConfigAtStartUp, TheFilesScaleOutlivesTheStartUpAndTheExitWritesBeforeItAsks) {
    Station st;
    st.writeConfig("[GU SCALE] 0 to 800\r\n[ROP ON] \r\n");
    ASSERT_TRUE(acq::Form_Load(st.ws));
    // The file's gas units scale outlives the start-up's own defaults and
    // the gas units handler at its end.
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 800);
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "0 to 800");
    // A path the file does not name: the statistics file under DB_CUE.
    EXPECT_EQ(st.ws.fm_setup.txt_stats_filename.text(), st.folder.file("DB_CUE/AUTOTALLY.TXT"));

    // The answer No keeps running, with the file written whole already.
    st.dialogs.answers.push_back(platform::Answer::No);
    EXPECT_FALSE(acq::Form_Unload(st.ws));
    EXPECT_TRUE(st.readConfig().contains("[APP PATH] "));
    EXPECT_TRUE(st.readConfig().contains("[ROP ON] \r\n"));
}
