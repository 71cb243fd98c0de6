// Whatever is in the file, the reader gets through it, and the next write
// puts a whole file back that reads back to itself: empty, cut, junk and
// huge files, and real files mutated at random under a fixed seed. A write
// that can't be finished leaves the old file.
#include "config/config_file.h"
#include "config/config_tags.h"
#include "config_fixture.h"

#include <QDir>
#include <csignal>
#include <random>
#include <sys/resource.h>

using cfgtest::Station;

namespace {

QString Normalised(const QByteArray& written) {
    // An empty serial number comes back as the number text "0".
    return QString::fromUtf8(written).replace("[SERIALNUMBER] \r\n", "[SERIALNUMBER] 0\r\n");
}

// After any read, what the writer makes is a whole file: the header, then
// one line per entry (the LAS unit choice may write none) from the serial
// number to the background colour, each a tag; and a fresh workstation
// reads it back to the same file.
::testing::AssertionResult RewritesWhole(Workstation& ws) {
    const QByteArray written = config::ConfigText(ws);
    QStringList lines = QString::fromUtf8(written).split("\r\n");
    if (lines.takeLast() != "") return ::testing::AssertionFailure() << "no CR LF at the end";
    lines = lines.mid(13);
    const auto entries = static_cast<qsizetype>(config::Entries().size());
    if (lines.size() < entries - 1 || lines.size() > entries)
        return ::testing::AssertionFailure() << lines.size() << " tag lines";
    if (!lines.first().startsWith("[SERIALNUMBER] ") ||
        !lines.last().startsWith("[BACKGROUND COLOR] "))
        return ::testing::AssertionFailure() << "first or last tag out of place";
    for (const QString& l : lines)
        if (!l.startsWith('['))
            return ::testing::AssertionFailure() << "not a tag: " << l.left(80).toStdString();
    Workstation again(ws.programDir);
    config::ReadConfigText(again, written);
    if (Normalised(config::ConfigText(again)) != Normalised(written))
        return ::testing::AssertionFailure() << "read back, it is written differently";
    return ::testing::AssertionSuccess();
}

QByteArray SampleFile() {
    Station st;
    cfgtest::SetEverythingOffDefault(st.ws);
    return config::ConfigText(st.ws);
}

class Mutator {
  public:
    explicit Mutator(uint32_t seed) : rng_(seed) {}
    int pick(int n) { return static_cast<int>(rng_() % static_cast<uint32_t>(n)); }

    QByteArray mutate(QByteArray b, const QByteArray& other) {
        for (int steps = 1 + pick(8); steps > 0; --steps) {
            const int at = pick(b.size() + 1);
            switch (pick(6)) {
            case 0: { // random bytes in
                QByteArray junk(pick(40), '\0');
                for (char& c : junk) c = static_cast<char>(rng_() & 0xFF);
                b.insert(at, junk);
                break;
            }
            case 1: // a stretch cut out, or the rest
                if (pick(2))
                    b.remove(at, pick(200));
                else
                    b.truncate(at);
                break;
            case 2: // a long run of one character
                b.insert(at, QByteArray(pick(5000), "7x \t[]-.\r\n"[pick(10)]));
                break;
            case 3: { // lines repeated and moved
                QList<QByteArray> lines = b.split('\n');
                lines.insert(pick(lines.size() + 1), lines[pick(lines.size())]);
                lines.swapItemsAt(pick(lines.size()), pick(lines.size()));
                b = lines.join('\n');
                break;
            }
            case 4: // part of another file, or junk for a value
                if (pick(2)) {
                    b.insert(at, other.mid(pick(other.size() + 1), pick(400)));
                } else if (const qsizetype v = b.indexOf("] ", at); v >= 0) {
                    b.insert(v + 2, QByteArray("-e9x,to,to ") + char(pick(256)));
                }
                break;
            default: { // stray line ends and NULs
                const char* bits[] = {"\r", "\n", "\r\r\n", "\0", "to"};
                const int k = pick(5);
                b.insert(at, QByteArray(bits[k], k == 3 ? 1 : -1));
            }
            }
        }
        return b;
    }

  private:
    std::mt19937 rng_;
};

} // namespace

TEST(ConfigRobustness, EmptyTruncatedAndGarbageFilesLoadAndAreRewrittenWhole) {
    std::mt19937 rng(7);
    QByteArray junk(64 * 1024, '\0');
    for (char& c : junk) c = static_cast<char>(rng() & 0xFF);
    for (const QByteArray& contents : {QByteArray(""), junk}) {
        Station st;
        st.writeConfig(contents);
        config::ReadConfigFile(st.ws);
        EXPECT_EQ(st.ws.fm_setup.txt_rop_scale.text(), "0 to 10");
        EXPECT_TRUE(RewritesWhole(st.ws));
    }
    // Cut in the middle of the gas units scale line.
    const QByteArray full = SampleFile();
    Station st;
    st.writeConfig(full.left(full.indexOf("[GU SCALE] 5 to 2") + 17));
    config::ReadConfigFile(st.ws);
    // What came before the cut is read, the cut line as far as it goes.
    EXPECT_EQ(st.ws.settings.Zoom, 4);
    EXPECT_EQ(st.ws.settings.GasScale.ScaleMax, 2);
    EXPECT_EQ(st.ws.fm_setup.txt_gas_units.text(), "5 to 2");
    EXPECT_FALSE(st.ws.fm_setup.ck_rop.checked()); // it stood after the cut
    EXPECT_TRUE(RewritesWhole(st.ws));
}

TEST(ConfigRobustness, MutatedRealFilesReadWithoutHarmAndRewriteWhole) {
    QList<QByteArray> bases;
    Station st;
    bases << config::ConfigText(st.ws) << SampleFile();
    cfgtest::SetEverythingOffDefault(st.ws);
    st.ws.fm_setup.op_cg_percent_sam.setValue(0); // no LAS unit chosen
    bases << config::ConfigText(st.ws).replace("\r\n", "\n");

    Mutator m(0x5EED1234);
    const int rounds = 500;
    int differentFromBase = 0;
    for (int round = 0; round < rounds; ++round) {
        const QByteArray& base = bases[m.pick(bases.size())];
        const QByteArray input = m.mutate(base, bases[m.pick(bases.size())]);
        if (input != base) ++differentFromBase;
        // In memory: a fresh workstation over the one folder is all a round needs.
        testkit::WiredWorkstation ws(st.folder.path());
        config::ReadConfigText(ws, input);
        ASSERT_TRUE(RewritesWhole(ws)) << "round " << round;
    }
    // The mutations did mutate.
    EXPECT_GT(differentFromBase, rounds * 9 / 10);
}

TEST(ConfigRobustness, BadValuesReadAsZero) {
    Station st;
    st.writeConfig("[ZOOM VIEW] lots\r\n[C1 COLOR] red\r\n[MENU X] -\r\n[WITS ITEM] four\r\n");
    config::ReadConfigFile(st.ws);
    EXPECT_EQ(st.ws.settings.Zoom, 0);
    EXPECT_EQ(st.ws.settings.ColorC1, 0);
    EXPECT_EQ(st.ws.fm_Gas_Chart.Frame6.left(), 0);
    EXPECT_EQ(st.ws.chart.Gwits_column, 0);
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
