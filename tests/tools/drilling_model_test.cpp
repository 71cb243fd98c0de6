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
    int connections = 0, runs = 0;
    double maxGas = 0;
    for (size_t i = 1; i < s.size(); ++i) {
        // The hole deepens only on bottom, one whole foot at a time.
        const double d0 = text::Val(s[i - 1].fields[3]), d1 = text::Val(s[i].fields[3]);
        EXPECT_TRUE(s[i].onBottom || s[i].holeDepth == s[i - 1].holeDepth) << i;
        EXPECT_TRUE(d1 >= d0 && d1 - d0 <= 1.0 && d1 == std::floor(d1)) << i;
        EXPECT_LE(s[i].bitDepth, s[i].holeDepth);
        EXPECT_TRUE(s[i].pumpsOn ? s[i].spm >= 84 && s[i].spm <= 120 : s[i].spm == 0) << i;
        if (s[i - 1].pumpsOn && !s[i].pumpsOn) ++connections;
        maxGas = std::max(maxGas, text::Val(s[i].fields[4]));
        if (text::Val(s[i].fields[16]) != text::Val(s[i - 1].fields[16])) ++runs;
    }
    // 20 to 120 ft/hr with a connection every stand.
    const double feet = s.back().holeDepth - s.front().holeDepth;
    EXPECT_GT(feet, 150);
    EXPECT_LT(feet, 1200);
    EXPECT_NEAR(connections, feet / 90, 2);
    EXPECT_GT(maxGas, 200);
    EXPECT_LT(maxGas, 2600);
    EXPECT_NEAR(runs, 6000 / 40, 2);
}
