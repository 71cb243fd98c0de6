// The report on the demonstration job the build makes: two days of drilling
// with connections, so every figure has something true to say.
#include "raw_db.h"
#include "stats_fixture.h"

#include <QRegularExpression>

namespace {

using namespace statstest;

TEST_F(StatsJob, TheDemonstrationJobHasDaysOfDrillingAndATallyOfStands) {
    QFile::remove(path);
    ASSERT_TRUE(QFile::copy(QStringLiteral(GASCHART_BINARY_DIR "/DB_CUE/V11_DEMO.DB"), path))
        << "the demonstration job was not made by the build";
    {
        // Pumps off at the connections, the bit off bottom.
        testkit::RawDb raw(path, testkit::RawDb::Access::ReadOnly);
        EXPECT_GE(raw.rows(), 2 * 14400);
        EXPECT_GT(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE TOTAL_SPM = 0"), 100);
        EXPECT_GT(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE BIT_DEPTH < DEPTH - 1"), 100);
    }
    const QStringList r = run();
    EXPECT_EQ(status().last(), "Job Done");

    // Two whole days at least, each with connections and time off bottom.
    const QStringList days = r.filter("START DATE: ");
    EXPECT_GE(days.size(), 2);
    const QStringList averages = r.filter("Time Per Connection Average: ");
    ASSERT_EQ(averages.size(), days.size());
    static const QRegularExpression minutes("^Time Per Connection Average: 00:(\\d\\d):\\d\\d$");
    for (int i = 0; i < 2; ++i) {
        const auto m = minutes.match(averages[i]);
        ASSERT_TRUE(m.hasMatch()) << averages[i].toStdString();
        // A stand every 90 ft counted as three joints of 30: a third of a
        // connection's 4 to 8 minutes.
        EXPECT_GE(m.captured(1).toInt(), 1) << averages[i].toStdString();
        EXPECT_LE(m.captured(1).toInt(), 4) << averages[i].toStdString();
    }
    for (const QString& l : r.filter("Percentage Off Bottom Time: ").mid(0, 2))
        EXPECT_GT(l.mid(28, 4).toDouble(), 2) << l.toStdString();
    for (const QString& l : r.filter("Total Ft Drilled: ").mid(0, 2))
        EXPECT_GT(l.mid(18).toInt(), 300) << l.toStdString();

    // The tally: a stand of about 90 ft at each connection.
    const QStringList tally = Job::tally(r);
    ASSERT_GE(tally.size(), 10);
    EXPECT_TRUE(tally[0].endsWith("<- Start of logging"));
    int stands = 0;
    for (const QString& l : tally.mid(1)) {
        const double length = l.split(", ")[2].toDouble();
        if (length >= 85 && length <= 96) ++stands;
    }
    EXPECT_GE(stands, (tally.size() - 1) * 9 / 10);
}

} // namespace
