// The default paths the start-up gives the setup panel in a fresh folder.
#include "acq_fixture.h"

#include "acquisition/startup.h"

using acqtest::AcqTest;

namespace {

class StartupPaths : public AcqTest {};

TEST_F(StartupPaths, StatisticsFileUnderDbCueAndAutogenFolderIsTheProgramFolder) {
    ASSERT_TRUE(acq::Form_Load(ws));
    EXPECT_EQ(ws.fm_setup.txt_stats_filename.text(), folder.file("DB_CUE/AUTOTALLY.TXT"));
    // The autogen folder is not kept: after the second read it is the
    // program folder, box and state alike.
    EXPECT_EQ(ws.rt.autogen_dir, folder.path());
    EXPECT_EQ(ws.fm_setup.txt_autogen_dir.text(), folder.path());
    ws.StopTimers();
}

} // namespace
