// Deleting a stretch chosen on the chart.
#include "station.h"
#include "store/range_delete.h"

#include <functional>

using platform::Answer;
using storetest::RawDb;

namespace {

struct DeleteJob : storetest::Station {
    // Packets 1 .. n with ID = packet number, the shared set open.
    explicit DeleteJob(int n) {
        storetest::InsertPackets(job, storetest::Packets(n));
        ws.chart.Gchart_busy = false;
        open();
    }
    // Two double clicks: the start on record a at row 3000, the end on b at
    // row 5000 (0: an empty row).
    void select(int a, int b) {
        ws.chart.RowRecordId[3000] = a;
        ws.chart.RowRecordId[5000] = b;
        ws.chart.SelectStartX = ws.chart.SelectEndX = 7000;
        ws.chart.SelectStartY = 3000;
        ws.chart.SelectEndY = 5000;
    }
    void press(Answer a) {
        dialogs.answers.push_back(a);
        store::cmd_del_from_db_Click(ws);
    }
    QString left() { return RawDb(job).packets(); }
};

TEST(RangeDelete, TheStretchAndOneRecordBeyondEachEndGo) {
    struct Case {
        const char* name;
        int rows, a, b;
        QString left;
    };
    const Case cases[] = {
        {"from the top down", 12, 8, 4, "1,2,10,11,12"},
        {"from the bottom up", 12, 4, 8, "1,2,10,11,12"},
    };
    for (const Case& c : cases) {
        DeleteJob j(c.rows);
        j.select(c.a, c.b);
        j.press(Answer::Yes);
        EXPECT_EQ(j.left(), c.left) << c.name;
        ASSERT_EQ(j.dialogs.boxes.size(), 1u) << c.name;
        EXPECT_EQ(j.dialogs.boxes[0].text, "This will permanately delete this data"
                                           "and may take a few minutes.\r\nARE YOU SURE?");
        EXPECT_EQ(j.ws.chart.SelectStartY, -1) << c.name;
        EXPECT_FALSE(j.ws.db.Gdb_busy) << c.name;
        EXPECT_EQ(j.ws.db.Grecords.RecordCount(), j.rows()) << c.name << ": the chart reads anew";
    }
}

TEST(RangeDelete, RefusalsLeaveEveryRow) {
    struct Case {
        const char* name;
        std::function<void(DeleteJob&)> arrange;
        Answer answer;
        QStringList titles; // the boxes shown
    };
    const QString ask = "ARE YOU SURE YOU WANT TO DELETE?";
    const Case cases[] = {
        {"answered No", [](DeleteJob& j) { j.select(3, 6); }, Answer::No, {ask}},
        {"no selection", [](DeleteJob&) {}, Answer::Yes, {}},
        {"an empty row", [](DeleteJob& j) { j.select(3, 0); }, Answer::Yes, {ask, ""}},
        {"data base busy",
         [](DeleteJob& j) {
             j.select(3, 6);
             j.ws.db.Gdb_busy = true;
         },
         Answer::Yes,
         {}},
    };
    for (const Case& c : cases) {
        DeleteJob j(10);
        c.arrange(j);
        j.press(c.answer);
        EXPECT_EQ(j.left(), "1,2,3,4,5,6,7,8,9,10") << c.name;
        QStringList titles;
        for (const auto& b : j.dialogs.boxes) titles << b.title;
        EXPECT_EQ(titles, c.titles) << c.name;
        if (c.titles.size() == 2) {
            EXPECT_EQ(j.dialogs.boxes[1].text, "You must select points from within the chart");
        }
    }
}

} // namespace
