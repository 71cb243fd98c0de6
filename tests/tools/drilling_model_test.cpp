#include "text/datetime.h"
#include "text/numbers.h"
#include "tools/common/drilling_model.h"

#include <gtest/gtest.h>

namespace {

std::vector<drill::Sample> Drill(uint32_t seed, int n) {
    drill::Options o;
    o.seed = seed;
    drill::Model m(o);
    std::vector<drill::Sample> out;
    for (int i = 0; i < n; ++i) out.push_back(m.next());
    return out;
}

} // namespace

TEST(DrillingModel, SameSeedSameWellOtherSeedOtherWell) {
    auto a = Drill(7, 500), b = Drill(7, 500), c = Drill(8, 500);
    bool differs = false;
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(drill::Model::PacketLine(a[i]), drill::Model::PacketLine(b[i])) << i;
        EXPECT_EQ(drill::Model::WitsLine(a[i]), drill::Model::WitsLine(b[i])) << i;
        differs = differs || drill::Model::PacketLine(a[i]) != drill::Model::PacketLine(c[i]);
    }
    EXPECT_TRUE(differs);
}

TEST(DrillingModel, PacketsAreWholeAndInOrder) {
    auto s = Drill(3, 3000); // five hours
    for (size_t i = 0; i < s.size(); ++i) {
        QString line = drill::Model::PacketLine(s[i]);
        ASSERT_TRUE(line.startsWith(u'*'));
        ASSERT_TRUE(line.endsWith(QStringLiteral("\r\n")));
        QStringList f = line.mid(1, line.size() - 3).split(u',');
        ASSERT_EQ(f.size(), 40) << line.toStdString();
        EXPECT_EQ(text::Val(f[28]), double(i + 1));
        auto dt = text::ParseDateTime(f[1] + u' ' + f[2]);
        ASSERT_TRUE(dt.has_value()) << f[1].toStdString() << " " << f[2].toStdString();
        EXPECT_EQ(*dt, s[0].time.addSecs(6 * qint64(i)));
        EXPECT_FALSE(f[20].isEmpty());
        if (i) {
            EXPECT_GE(text::Val(f[3]), text::Val(s[i - 1].fields[3]));
        }
    }
}

TEST(DrillingModel, DrillsConnectsAndShowsGas) {
    auto s = Drill(11, 6000); // ten hours
    int connections = 0, runs = 0, bigGas = 0;
    double maxGas = 0, minBackground = 1e9;
    for (size_t i = 1; i < s.size(); ++i) {
        // depth never goes back, and only moves while the bit is on bottom
        EXPECT_GE(s[i].holeDepth, s[i - 1].holeDepth);
        if (!s[i].onBottom) {
            EXPECT_EQ(s[i].holeDepth, s[i - 1].holeDepth);
        }
        EXPECT_LE(s[i].bitDepth, s[i].holeDepth);
        if (s[i - 1].pumpsOn && !s[i].pumpsOn) ++connections;
        if (!s[i].pumpsOn) {
            EXPECT_EQ(s[i].spm, 0);
        }
        if (s[i].pumpsOn) {
            EXPECT_GE(s[i].spm, 84);
            EXPECT_LE(s[i].spm, 120);
        }
        // the feet drilled come one whole foot at a time
        double d0 = text::Val(s[i - 1].fields[3]), d1 = text::Val(s[i].fields[3]);
        EXPECT_LE(d1 - d0, 1.0);
        EXPECT_EQ(d1, std::floor(d1));
        double g = text::Val(s[i].fields[4]);
        maxGas = std::max(maxGas, g);
        if (s[i].onBottom) minBackground = std::min(minBackground, g);
        if (g > 200) ++bigGas;
        if (text::Val(s[i].fields[16]) != text::Val(s[i - 1].fields[16])) ++runs;
    }
    double feet = s.back().holeDepth - s.front().holeDepth;
    // 20 to 120 ft/hr with connections over ten hours
    EXPECT_GT(feet, 150);
    EXPECT_LT(feet, 1200);
    EXPECT_NEAR(connections, feet / 90, 2);
    EXPECT_GT(maxGas, 200);
    EXPECT_LT(maxGas, 2600);
    EXPECT_GT(bigGas, 5);
    EXPECT_GE(minBackground, 3);
    EXPECT_NEAR(runs, 6000 / 40, 2);
}

TEST(DrillingModel, ChromatographRunCarriesPeaksAndSplitFollows) {
    auto s = Drill(5, 200);
    // find the first whole run
    size_t start = 1;
    while (s[start].fields[16] == s[start - 1].fields[16]) ++start;
    size_t end = start + 1;
    while (s[end].fields[16] == s[start].fields[16]) ++end;
    int lastFound = -1, windows = 0;
    for (size_t i = start; i < end; ++i) {
        QString t = text::Str(text::Val(s[i].fields[17]));
        if (t.size() >= 8) {
            int found = t[7].digitValue();
            EXPECT_GE(found, lastFound);
            lastFound = found;
        }
        if (t.size() >= 9 && t[8].digitValue() > 0) ++windows;
    }
    EXPECT_EQ(lastFound, 7); // every peak of the run found by its last sample
    EXPECT_GT(windows, 15);
    // the split comes with the packet after the run and is mostly methane
    const auto& after = s[end].fields;
    double c1 = text::Val(after[29]), c2 = text::Val(after[30]), nc5 = text::Val(after[39]);
    EXPECT_GT(c1, c2);
    EXPECT_GT(c2, nc5);
    EXPECT_GT(nc5, 0);
}

TEST(DrillingModel, WitsLineHasTheRigItems) {
    auto s = Drill(2, 20);
    QString w = drill::Model::WitsLine(s.back());
    ASSERT_TRUE(w.startsWith(u'^'));
    QStringList items = w.trimmed().split(u',');
    ASSERT_GT(items.size(), 6);
    QStringList codes;
    for (int i = 5; i < items.size(); ++i) {
        ASSERT_GE(items[i].size(), 6) << items[i].toStdString();
        codes << items[i].left(4);
    }
    for (const char* c : {"0108", "0110", "0123", "0124", "0125", "0713", "0715", "0823"})
        EXPECT_TRUE(codes.contains(QLatin1String(c))) << c;
    int at = int(codes.indexOf(QStringLiteral("0110")));
    EXPECT_NEAR(text::Val(items[5 + at].mid(4)), s.back().holeDepth, 0.05);
}
