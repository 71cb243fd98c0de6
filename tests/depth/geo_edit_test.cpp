// The geolograph commands on a real job file: what each writes, what they
// refuse, and how a restore undoes them.
#include "geo_fixture.h"

#include <functional>

using namespace geotest;
using platform::Answer;

namespace {

class GeoEdit : public ::testing::Test, protected GeoJob {};

TEST_F(GeoEdit, TicksAndStopsGoOnAndComeOffOneRecord) {
    struct Case {
        const char* name;
        std::function<void(GeoJob&)> act;
        const char* column;
        QString expected;
    };
    const QString plain = "1000.0 1000.0 1000.0 1000.0 1001.0 1001.0 1001.0 1001.0";
    // Each case on a fresh copy of eight records, two feet of four.
    const Case cases[] = {
        {"a tick", [](GeoJob& j) { j.click(&depth::cmd_add_foot_tick_Click, 0, 3); }, "DEPTH",
         "1000.0 1000.0 -1000.0 1000.0 1001.0 1001.0 1001.0 1001.0"},
        {"twice is none",
         [](GeoJob& j) {
             j.click(&depth::cmd_add_foot_tick_Click, 0, 3);
             j.click(&depth::cmd_add_foot_tick_Click, 0, 3);
         },
         "DEPTH", plain},
        {"a stop", [](GeoJob& j) { j.click(&depth::cmd_add_foot_tick_Click, 1, 6); }, "CGTESTNUM",
         "1.0 1.0 1.0 1.0 1.0 -1.0 1.0 1.0"},
        {"not at the newest", [](GeoJob& j) { j.click(&depth::cmd_add_foot_tick_Click, 0, 8); },
         "DEPTH", plain},
        {"the nearest tick comes off",
         [](GeoJob& j) {
             j.click(&depth::cmd_add_foot_tick_Click, 0, 3);
             j.click(&depth::cmd_add_foot_tick_Click, 0, 7);
             j.click(&depth::cmd_rem_foot_tick_Click, 0, 6);
         },
         "DEPTH", "1000.0 1000.0 -1000.0 1000.0 1001.0 1001.0 1001.0 1001.0"},
        {"the stop comes off",
         [](GeoJob& j) {
             j.click(&depth::cmd_add_foot_tick_Click, 1, 4);
             j.click(&depth::cmd_rem_foot_tick_Click, 1, 2);
         },
         "CGTESTNUM", "1.0 1.0 1.0 1.0 1.0 1.0 1.0 1.0"},
    };
    for (const Case& c : cases) {
        GeoJob j;
        j.write(Feet(1000, 2, 4));
        c.act(j);
        EXPECT_EQ(j.column(c.column), c.expected) << c.name;
        EXPECT_FALSE(j.busy()) << c.name;
    }
}

TEST_F(GeoEdit, RemovingWhatIsNotThereSaysSo) {
    write(Feet(1000, 2, 4));
    click(&depth::cmd_rem_foot_tick_Click, 0, 4);
    click(&depth::cmd_rem_foot_tick_Click, 1, 4);
    ASSERT_EQ(dialogs.boxes.size(), 2u);
    EXPECT_EQ(dialogs.boxes[0].text, "Ft not found to remove");
    EXPECT_EQ(dialogs.boxes[1].text, "Numbering stop not found to remove");
}

TEST_F(GeoEdit, RenumberCountsTicksAndChangesAndEndsAtAStop) {
    struct Case {
        const char* name;
        std::vector<Rec> recs;
        int direction;
        int from;
        const char* startAt; // nullptr: no start number
        QString expected;
    };
    const Case cases[] = {
        {"three ticks going down, fractions kept",
         {{1000.25}, {1000.25}, {-1000.5}, {1000.5}, {-1000.5}, {-1000.75}, {1000.75}},
         1,
         1,
         nullptr,
         "1000.25 1000.25 1001.5 1001.5 1002.5 1003.75 1003.75"},
        {"going up from the newest",
         {{500}, {505}, {505}, {502}, {502}},
         0,
         5,
         nullptr,
         "500.0 501.0 501.0 502.0 502.0"},
        {"a stop ends it at the next change",
         {{10}, {15}, {15, true}, {15}, {17}, {18}},
         1,
         1,
         nullptr,
         "10.0 11.0 11.0 11.0 17.0 18.0"},
        {"the start number at the first tick",
         {{10}, {10}, {-10}, {10}, {11}},
         1,
         1,
         "2000",
         "10.0 10.0 2001.0 2001.0 2002.0"},
        {"across a place holder",
         {{300}, {305}, {305, false, "0 *#"}, {305, false, "0 *#"}, {306}},
         1,
         1,
         nullptr,
         "300.0 301.0 301.0 301.0 302.0"},
        {"across a place holder with the feet miscounted",
         {{300}, {300}, {300, false, "0 *#"}, {-300, false, "0 *#"}, {301}},
         1,
         1,
         nullptr,
         "300.0 300.0 300.0 301.0 302.0"},
    };
    for (const Case& c : cases) {
        GeoJob j;
        j.write(c.recs);
        const QString raw = j.column("DEPTH_RAW");
        j.renumber(c.direction, c.from, c.startAt);
        EXPECT_EQ(j.column("DEPTH"), c.expected) << c.name;
        EXPECT_EQ(j.column("DEPTH_RAW"), raw) << c.name << ": the raw depth stays";
    }
}

TEST_F(GeoEdit, RestoreAfterEditsGivesTheRawDepthBack) {
    const std::vector<Rec> recs = Feet(1000, 5, 6);
    write(recs);
    const QString raw = column("DEPTH_RAW");
    click(&depth::cmd_add_foot_tick_Click, 0, 4);
    renumber(1, 2, "3000");
    select(10, 25);
    depth::cmd_del_sel_ticks_Click(ws);
    ASSERT_NE(column("DEPTH"), raw);

    // A stretch: its last five records stay as the edits left them.
    const QStringList before = column("DEPTH").split(' ');
    select(20, 3);
    depth::cmd_restore_geo_Click(ws);
    const QStringList part = column("DEPTH").split(' ');
    const QStringList rawRows = raw.split(' ');
    for (int i = 0; i < part.size(); ++i) {
        const bool restored = i >= 2 && i < 2 + (19 - 2 - 5);
        EXPECT_EQ(part[i], restored ? rawRows[i] : before[i]) << "record " << i + 1;
    }

    // All: answered No, nothing; Yes, everything.
    answer(Answer::No);
    depth::cmd_restore_all_geo_Click(ws);
    EXPECT_EQ(column("DEPTH").split(' '), part);
    answer(Answer::Yes);
    depth::cmd_restore_all_geo_Click(ws);
    EXPECT_EQ(column("DEPTH"), raw);
    EXPECT_EQ(dialogs.boxes.back().title, "RESTORE DEPTH MARKS?");
}

TEST_F(GeoEdit, FeetAddedBetweenChangesSurviveARestore) {
    // Four records on 100, three on 101 over eighteen seconds, then 103 (a
    // jump of two) for a record, then a foot too long to fill.
    std::vector<Rec> recs = {{100}, {100}, {100}, {100}, {101}, {101}, {101}, {103}};
    for (int i = 0; i < 1401; ++i) recs.push_back({104});
    recs.push_back({105});
    write(recs);
    depth::cmd_insert_ft_Click(ws);
    answer(Answer::Yes);
    depth::cmd_restore_all_geo_Click(ws);
    const QStringList d = column("DEPTH").split(' ');
    const QStringList expected = {"100.0", "100.2", "100.5", "100.7", "101.0",
                                  "101.6", "102.3", "103.0", "104.0", "104.0"};
    for (int i = 0; i < expected.size(); ++i) EXPECT_EQ(d[i], expected[i]) << "record " << i + 1;
    EXPECT_EQ(d[1408], "104.0") << "the long foot stays as it was";
    EXPECT_EQ(column("DEPTH_RAW").split(' ').mid(0, 8), d.mid(0, 8));
    EXPECT_EQ(column("BIT_DEPTH").split(' ')[2], "100.5");
    // Four records took 24 s for the foot: 0.4 minutes, 150 ft an hour; the
    // first of a run is not written.
    EXPECT_EQ(column("MIN_FT").split(' ').mid(0, 2), (QStringList{"2.0", "0.4"}));
    EXPECT_EQ(column("FT_HR").split(' ')[1], "150.0");
}

TEST_F(GeoEdit, GasMarkedBadStacksAndGoodTakesEveryMarkOff) {
    write(Feet(50, 2, 10));
    select(2, 19);
    depth::cmd_Mark_GU_Click(ws, 1);
    select(19, 2);
    depth::cmd_Mark_GU_Click(ws, 1);
    const QStringList bad = column("ERR_TXT").split(' ');
    EXPECT_EQ(bad.mid(0, 2), (QStringList{"'0'", "'**0'"}));
    EXPECT_EQ(bad.mid(12, 2), (QStringList{"'**0'", "'0'"})) << "the last of a selection are left";
    select(2, 19);
    depth::cmd_Mark_GU_Click(ws, 0);
    EXPECT_EQ(column("ERR_TXT").count('*'), 0);
    EXPECT_EQ(ws.chart.SelectStartY, -1);
}

TEST_F(GeoEdit, RefusalsChangeNothing) {
    // The stretch commands share their selection check and every command
    // its busy check: one case each stands for all of them.
    struct Case {
        const char* name;
        std::function<void(GeoJob&)> arrange;
        std::function<void(GeoJob&)> command;
    };
    auto none = [](GeoJob&) {};
    auto tick = [](GeoJob& j) { depth::cmd_add_foot_tick_Click(j.station(), 0); };
    auto bad = [](GeoJob& j) { depth::cmd_Mark_GU_Click(j.station(), 1); };
    const Case cases[] = {
        {"delete ticks, no selection", none,
         [](GeoJob& j) { depth::cmd_del_sel_ticks_Click(j.station()); }},
        {"tick, line not level",
         [](GeoJob& j) {
             j.level(10);
             j.station().chart.ln_selecter_Y2 += 15;
         },
         tick},
        {"tick, chart drawing",
         [](GeoJob& j) {
             j.level(10);
             j.station().chart.Gchart_busy = true;
         },
         tick},
        {"mark, busy",
         [](GeoJob& j) {
             j.select(3, 30);
             j.setBusy(true);
         },
         bad},
    };
    for (const Case& c : cases) {
        GeoJob j;
        std::vector<Rec> recs = Feet(700, 8, 5);
        recs[12].depth = -recs[12].depth;
        j.write(recs);
        const QString before = j.dump();
        c.arrange(j);
        c.command(j);
        EXPECT_EQ(j.dump(), before) << c.name;
    }
}

} // namespace
