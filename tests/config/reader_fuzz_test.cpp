// Real settings files, mutated at random under a fixed seed: the reader gets
// through every one, and what it makes of it is written as a whole file that
// reads back to itself.
#include "config/config_tags.h"
#include "config_fixture.h"

#include <QTemporaryDir>
#include <random>

using cfgtest::Station;

namespace {

class Mutator {
  public:
    explicit Mutator(uint32_t seed) : rng_(seed) {}

    int pick(int n) { return static_cast<int>(rng_() % static_cast<uint32_t>(n)); }

    QByteArray mutate(QByteArray b, const QByteArray& other) {
        const int steps = 1 + pick(8);
        for (int s = 0; s < steps; ++s) {
            switch (pick(10)) {
            case 0: // flip a byte
                if (!b.isEmpty()) b[pick(b.size())] = static_cast<char>(rng_() & 0xFF);
                break;
            case 1: { // insert random bytes
                QByteArray junk(pick(40), '\0');
                for (char& c : junk) c = static_cast<char>(rng_() & 0xFF);
                b.insert(pick(b.size() + 1), junk);
                break;
            }
            case 2: // cut a stretch out
                if (!b.isEmpty()) {
                    const int at = pick(b.size());
                    b.remove(at, pick(200));
                }
                break;
            case 3: // truncate
                b.truncate(pick(b.size() + 1));
                break;
            case 4: { // a long run of one character
                const char c = "7x \t[]-.\r\n"[pick(10)];
                b.insert(pick(b.size() + 1), QByteArray(pick(5000), c));
                break;
            }
            case 5: { // duplicate a line somewhere else
                const QList<QByteArray> lines = b.split('\n');
                if (!lines.isEmpty())
                    b.insert(pick(b.size() + 1), lines[pick(lines.size())] + '\n');
                break;
            }
            case 6: { // swap two lines
                QList<QByteArray> lines = b.split('\n');
                if (lines.size() > 1) lines.swapItemsAt(pick(lines.size()), pick(lines.size()));
                b = lines.join('\n');
                break;
            }
            case 7: // splice in part of another file
                if (!other.isEmpty()) {
                    const int from = pick(other.size());
                    b.insert(pick(b.size() + 1), other.mid(from, pick(400)));
                }
                break;
            case 8: { // replace a value with junk
                const qsizetype at = b.indexOf("] ", pick(b.size() + 1));
                if (at >= 0) b.insert(at + 2, QByteArray("-e9x,to,to ") + char(pick(256)));
                break;
            }
            default: { // stray line ends and NULs
                const char* bits[] = {"\r", "\n", "\r\r\n", "\0", "to"};
                const int k = pick(5);
                b.insert(pick(b.size() + 1), QByteArray(bits[k], k == 3 ? 1 : -1));
                break;
            }
            }
        }
        return b;
    }

  private:
    std::mt19937 rng_;
};

QString Normalised(const QByteArray& written) {
    QString s = QString::fromUtf8(written);
    s.replace("[SERIALNUMBER] \r\n", "[SERIALNUMBER] 0\r\n");
    return s;
}

} // namespace

TEST(ConfigFuzz, MutatedFilesReadWithoutHarmAndRewriteWhole) {
    QList<QByteArray> bases;
    {
        Station st;
        bases << config::ConfigText(st.ws);
        cfgtest::SetEverythingOffDefault(st.ws);
        bases << config::ConfigText(st.ws);
        st.ws.fm_setup.op_cg_percent_sam.setValue(0); // no LAS unit chosen
        bases << config::ConfigText(st.ws).replace("\r\n", "\n");
    }
    // The reads and writes here stay in memory: fresh workstations over one
    // folder are all a round needs.
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    Mutator m(0x5EED1234);
    const int rounds = 500;
    int differentFromBase = 0;
    for (int round = 0; round < rounds; ++round) {
        const QByteArray& base = bases[m.pick(bases.size())];
        const QByteArray input = m.mutate(base, bases[m.pick(bases.size())]);
        if (input != base) ++differentFromBase;

        Workstation first(dir.path());
        config::ReadConfigText(first, input);
        const QByteArray written = config::ConfigText(first);
        // A whole file: the header and one line per entry (the LAS unit
        // choice may have none), each line a tag.
        QStringList lines = QString::fromUtf8(written).split("\r\n");
        ASSERT_EQ(lines.takeLast(), "") << "round " << round;
        const auto entries = static_cast<qsizetype>(config::Entries().size());
        ASSERT_GE(lines.size() - 13, entries - 1) << "round " << round;
        ASSERT_LE(lines.size() - 13, entries) << "round " << round;
        for (qsizetype i = 13; i < lines.size(); ++i)
            ASSERT_TRUE(lines[i].startsWith('['))
                << "round " << round << ": " << lines[i].left(80).toStdString();

        // What was made of the input survives the next run as it stands.
        Workstation second(dir.path());
        config::ReadConfigText(second, written);
        ASSERT_EQ(Normalised(config::ConfigText(second)), Normalised(written)) << "round " << round;
    }
    // The mutations did mutate.
    EXPECT_GT(differentFromBase, rounds * 9 / 10);
}
