// The stall watch as a soak reads it: a hold of the event loop shows in the
// line written after it, and only there.
#include "file_bytes.h"
#include "platform/stall_watch.h"
#include "simulator.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>

TEST(StallWatch, AHoldOfTheLoopIsWrittenOnceAsTheLongestGapOfItsLine) {
    QTemporaryDir dir;
    const QString file = dir.filePath("stalls.log");
    {
        platform::StallWatch watch(file, 10, 200);
        ASSERT_TRUE(watch.isOpen());
        testkit::Pump(500);
        std::this_thread::sleep_for(std::chrono::milliseconds(400)); // a job holding the loop
        testkit::Pump(900);
    }
    std::vector<std::pair<qint64, qint64>> lines;
    for (const QByteArray& l : testkit::ReadFile(file).split('\n')) {
        const QList<QByteArray> w = l.split(' ');
        if (w.size() == 2) lines.push_back({w[0].toLongLong(), w[1].toLongLong()});
    }
    ASSERT_GE(lines.size(), 5u);
    size_t held = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i) {
            EXPECT_GT(lines[i].first, lines[i - 1].first);
        }
        if (lines[i].second > lines[held].second) held = i;
    }
    EXPECT_GE(lines[held].second, 380);
    ASSERT_LT(held + 1, lines.size()) << "no line after the hold";
    EXPECT_LT(lines[held + 1].second, 300) << "the longest gap was not reset";
}
