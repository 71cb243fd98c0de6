// Whatever is in the file, the reader gets through it and the next write
// puts a whole file back; a write that can't be finished leaves the old file.
#include "config/config_file.h"
#include "config_fixture.h"

#include <QDir>
#include <csignal>
#include <sys/resource.h>

using cfgtest::Station;

namespace {

// After any read the writer puts back a whole file: as many lines as a fresh
// workstation writes (the LAS unit choice may write one fewer), CR LF ends,
// the background colour last. That it reads back to itself is the fuzz
// target's check.
::testing::AssertionResult RewritesWhole(Workstation& ws) {
    const QString written = QString::fromUtf8(config::ConfigText(ws));
    Workstation fresh(ws.programDir);
    const auto want = QString::fromUtf8(config::ConfigText(fresh)).count("\r\n");
    const auto lines = written.count("\r\n");
    if (lines < want - 1 || lines > want + 1)
        return ::testing::AssertionFailure() << lines << " lines, a fresh file has " << want;
    if (!written.endsWith("\r\n") ||
        !written.section("\r\n", -2, -2).startsWith("[BACKGROUND COLOR] "))
        return ::testing::AssertionFailure() << "the end of the file is missing";
    return ::testing::AssertionSuccess();
}

QByteArray SampleFile() {
    Station st;
    cfgtest::SetEverythingOffDefault(st.ws);
    return config::ConfigText(st.ws);
}

} // namespace

TEST(ConfigRobustness, EmptyAndCutFilesLoadAndAreRewrittenWhole) {
    Station empty;
    empty.writeConfig("");
    config::ReadConfigFile(empty.ws);
    EXPECT_EQ(empty.ws.fm_setup.txt_rop_scale.text(), "0 to 10");
    EXPECT_TRUE(RewritesWhole(empty.ws));

    // Cut in the middle of the gas units scale line: what came before the
    // cut is read, the cut line as far as it goes.
    const QByteArray full = SampleFile();
    Station st;
    st.writeConfig(full.left(full.indexOf("[GU SCALE] 5 to 2") + 17));
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.settings.Zoom, 4);
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "5 to 2");
    EXPECT_FALSE(st.ws.fm_setup.ck_rop.checked()); // it stood after the cut
    EXPECT_TRUE(RewritesWhole(st.ws));
}

TEST(ConfigRobustness, AWriteThatFailsLeavesTheOldFileAndSaysSoOnce) {
    Station st;
    config::WriteConfigFile(st.ws);
    const QByteArray before = st.readConfig();
    ASSERT_GT(before.size(), 1000);

    // A disk that fills up after 512 bytes of any one file.
    struct rlimit old {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit tiny = old;
    tiny.rlim_cur = 512;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tiny), 0);
    st.ws.fm_setup.ck_rop.setValue(1);
    config::WriteConfigFile(st.ws);
    const QString firstMessage = st.ws.fm_Gas_Chart.txt_message.text();
    st.ws.fm_Gas_Chart.txt_message.setText("");
    config::tmr_save_ini_Timer(st.ws);
    const QString secondMessage = st.ws.fm_Gas_Chart.txt_message.text();
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(st.readConfig(), before);
    EXPECT_TRUE(firstMessage.contains("Write Config File Err: ")) << firstMessage.toStdString();
    EXPECT_TRUE(secondMessage.isEmpty()) << secondMessage.toStdString();
    // No half-written file is left beside it.
    EXPECT_EQ(QDir(st.folder.path()).entryList(QDir::Files).filter("OM_10").size(), 1);

    // Room again: the timer's write goes through.
    config::tmr_save_ini_Timer(st.ws);
    EXPECT_TRUE(st.readConfig().contains("[ROP ON] \r\n"));
    EXPECT_FALSE(st.ws.settings.writeFailed);
}
