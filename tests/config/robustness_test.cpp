// Whatever is in the file, the reader gets through it, and the next write
// puts a whole file back. A write that can't be finished leaves the old file.
#include "acquisition/timers.h"
#include "config/config_tags.h"
#include "config_fixture.h"
#include "text/numbers.h"

#include <QDir>
#include <csignal>
#include <random>
#include <sys/resource.h>

using cfgtest::Station;

namespace {

// The tag lines of a written file, without the header.
QStringList TagLines(const QByteArray& bytes) {
    QStringList lines = QString::fromUtf8(bytes).split("\r\n");
    lines.removeLast();
    return lines.mid(13);
}

// After any read, a write gives a whole file: one line per entry that
// writes a line, each starting with a tag the reader knows (or one of the
// written-only tags), and it reads back to the same file.
void ExpectWholeFileRewritten(Station& st) {
    config::WriteConfigFile(st.ws);
    const QByteArray written = st.readConfig();
    const QStringList lines = TagLines(written);
    // The LAS choice is the one entry that may write no line at all.
    EXPECT_GE(lines.size(), static_cast<qsizetype>(config::Entries().size()) - 1);
    EXPECT_LE(lines.size(), static_cast<qsizetype>(config::Entries().size()));
    EXPECT_TRUE(lines.first().startsWith("[SERIALNUMBER] "));
    EXPECT_TRUE(lines.last().startsWith("[BACKGROUND COLOR] "));

    Station again;
    again.writeConfig(written);
    config::ReadConfigFile(again.ws);
    config::WriteConfigFile(again.ws);
    QString second = QString::fromUtf8(again.readConfig());
    second.replace(again.folder.path(), st.folder.path());
    // An empty serial number comes back as the number text "0".
    EXPECT_EQ(second,
              QString::fromUtf8(written).replace("[SERIALNUMBER] \r\n", "[SERIALNUMBER] 0\r\n"));
}

QByteArray SampleFile() {
    Station st;
    cfgtest::SetEverythingOffDefault(st.ws);
    return config::ConfigText(st.ws);
}

} // namespace

TEST(ConfigRobustness, EmptyTruncatedAndGarbageFilesLoadAndAreRewrittenWhole) {
    {
        Station st;
        st.writeConfig("");
        config::ReadConfigFile(st.ws);
        EXPECT_EQ(st.ws.fm_setup.txt_rop_scale.text(), "0 to 10");
        ExpectWholeFileRewritten(st);
    }
    {
        // Cut in the middle of the gas units scale line.
        const QByteArray full = SampleFile();
        const qsizetype cut = full.indexOf("[GU SCALE] 5 to 2") + 17;
        Station st;
        st.writeConfig(full.left(cut));
        config::ReadConfigFile(st.ws);
        // What came before the cut is read, the cut line as far as it goes.
        EXPECT_EQ(st.ws.settings.Zoom, 4);
        EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 2);
        EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "5 to 2");
        EXPECT_FALSE(st.ws.fm_setup.ck_rop.checked()); // it stood after the cut
        ExpectWholeFileRewritten(st);
    }
    {
        std::mt19937 rng(7);
        QByteArray junk(64 * 1024, '\0');
        for (char& c : junk) c = static_cast<char>(rng() & 0xFF);
        Station st;
        st.writeConfig(junk);
        config::ReadConfigFile(st.ws);
        ExpectWholeFileRewritten(st);
    }
}

TEST(ConfigRobustness, BadValuesReadAsZero) {
    Station st;
    st.writeConfig("[ZOOM VIEW] lots\r\n[C1 COLOR] red\r\n[MENU X] -\r\n"
                   "[GU SCALE] low to high\r\n[WITS ITEM] four\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.settings.Zoom, 0);
    EXPECT_EQ(st.ws.settings.ColorC1, 0);
    EXPECT_EQ(st.ws.settings.MenuX, 0);
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMin, 0);
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 0);
    EXPECT_EQ(st.ws.settings.RopScale.ScaleMax, 1);
    EXPECT_EQ(st.ws.rt.Gwits_column, 0);
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "0 to 0");
}

TEST(ConfigRobustness, TenMegabytesAndLinesOfAHundredThousandCharacters) {
    const QByteArray sample = SampleFile();
    QByteArray big;
    big.reserve(11 * 1024 * 1024);
    const QByteArray longValue(100000, '7');
    const QByteArray longJunk(100000, 'x');
    while (big.size() < 10 * 1024 * 1024) {
        big += sample;
        big += "[DB FILE DIR] " + longJunk + "\r\n";
        big += "[GU SCALE] 1 to " + longValue + "\r\n";
        big += longJunk + "\r\n";
    }
    // The last word on each tag is the sample's, but for the long lines.
    Station st;
    st.writeConfig(big);
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.fm_Gas_Chart.txt_db_path.text().size(), 100000);
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMin, 1);
    EXPECT_GT(st.ws.settings.GasScale.ScaleMax, 1e300); // as large as a number goes
    EXPECT_EQ(st.ws.settings.RopScale.ScaleMax, 10000);
    EXPECT_EQ(st.ws.settings.Zoom, 4);
    ExpectWholeFileRewritten(st);
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
