// The simulated instrument learns where its peaks fall and draws the runs it
// sends to match.
#include "simulator.h"
#include "text/numbers.h"

#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <map>

namespace {

constexpr int kRun = 40;    // samples a run
constexpr int kSeconds = 6; // model seconds between samples

// The runs heard so far: test number to its detector values in order.
struct Runs {
    QByteArray buffer;
    std::map<long, std::vector<QString>> cgv;
    long newest = 0;

    void read(QTcpSocket& s) {
        buffer += s.readAll();
        qsizetype end;
        while ((end = buffer.indexOf('\n')) >= 0) {
            const QString line = QString::fromLatin1(buffer.left(end)).trimmed();
            buffer.remove(0, end + 1);
            if (!line.startsWith(QLatin1Char('*'))) continue;
            const QStringList f = line.mid(1).split(QLatin1Char(','));
            if (f.size() < 18) continue;
            newest = f[16].toLong();
            cgv[newest].push_back(f[17]);
        }
    }
    // The first whole run numbered at least from.
    const std::vector<QString>* whole(long from) const {
        for (auto it = cgv.lower_bound(from); it != cgv.end(); ++it)
            if (int(it->second.size()) == kRun && it != cgv.begin()) return &it->second;
        return nullptr;
    }
};

// The sample where the C3 bump tops, between the C2 and IC4 peaks.
int C3Top(const std::vector<QString>& run) {
    int best = 10;
    for (int i = 10; i <= 15; ++i)
        if (text::Val(run[size_t(i)]) > text::Val(run[size_t(best)])) best = i;
    return best;
}

// The first sample whose found digit says C3 has passed.
int C3Found(const std::vector<QString>& run) {
    for (int i = 0; i < kRun; ++i) {
        const QString& t = run[size_t(i)];
        if (t.size() >= 8 && t[7].digitValue() >= 3) return i;
    }
    return -1;
}

} // namespace

TEST(SimulatorPeakTable, ATaughtTimeMovesTheC3PeakFromTheNextRunOn) {
    QTemporaryDir dir;
    testkit::Simulator sim(dir.filePath("sim.log"));
    const quint16 port = testkit::FreePort();
    ASSERT_TRUE(sim.start({"--tcp", QString::number(port), "--interval", "0.02"}));
    QTcpSocket link;
    link.connectToHost("127.0.0.1", port);
    ASSERT_TRUE(link.waitForConnected(5000));
    Runs runs;

    struct Lesson {
        const char* command; // empty: the table as the instrument starts
        const char* logged;
        double seconds; // where the C3 peak should top afterwards
    };
    const Lesson lessons[] = {
        {"", "", 78},
        {"WRITEETIME C3 66", "WRITEETIME C3 66", 66},
        {"writeetime c3 84", "WRITEETIME C3 84", 84},
        // refused: past the end of a run, and an unknown peak; C3 stays put
        {"WRITEETIME C3 500", "WRITEETIME C3 500 REFUSED", 84},
        {"WRITEETIME C9 30", "WRITEETIME C9 30 REFUSED", 84},
    };
    for (const Lesson& l : lessons) {
        SCOPED_TRACE(l.command);
        long from = 1;
        if (*l.command) {
            const int before = sim.count("WRITEETIME");
            link.write(QByteArray(l.command) + "\r");
            ASSERT_TRUE(testkit::PumpUntil(5000, [&] {
                runs.read(link);
                return sim.count("WRITEETIME") > before;
            }));
            EXPECT_EQ(sim.lines("WRITEETIME").last().trimmed(), QString(l.logged));
            // A packet of the run under way may still be on the wire.
            from = runs.newest + 2;
        }
        const std::vector<QString>* run = nullptr;
        ASSERT_TRUE(testkit::PumpUntil(8000, [&] {
            runs.read(link);
            return (run = runs.whole(from)) != nullptr;
        }));
        const int top = int(std::lround(l.seconds / kSeconds));
        EXPECT_EQ(C3Top(*run), top);
        EXPECT_EQ(C3Found(*run), int(std::ceil(l.seconds / kSeconds)));
        // a bump, not a step: it rises to the top and falls away after it
        EXPECT_GT(text::Val((*run)[size_t(top)]), text::Val((*run)[size_t(top - 2)]) + 0.01);
        EXPECT_GT(text::Val((*run)[size_t(top)]), text::Val((*run)[size_t(top + 2)]) + 0.01);
    }
}
