// The geolograph commands on a real job file: what each writes, what they
// refuse, how a restore undoes them, and that a command killed half way
// leaves the job as it was.
#include "geo_fixture.h"

#include "store/range_delete.h"

#include <csignal>
#include <functional>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace geotest;
using platform::Answer;

namespace {

class GeoEdit : public ::testing::Test, protected GeoJob {};

TEST_F(GeoEdit, TicksAndStopsGoOnAndComeOffOneRecordAndSayWhenNoneIsThere) {
    write(Feet(1000, 2, 4));
    const QString plain = column("DEPTH");
    // Twice on one record is none; none goes on the newest record.
    click(&depth::cmd_add_foot_tick_Click, 0, 3);
    click(&depth::cmd_add_foot_tick_Click, 0, 3);
    click(&depth::cmd_add_foot_tick_Click, 0, 8);
    EXPECT_EQ(column("DEPTH"), plain);
    // The nearest tick comes off.
    click(&depth::cmd_add_foot_tick_Click, 0, 3);
    click(&depth::cmd_add_foot_tick_Click, 0, 7);
    click(&depth::cmd_rem_foot_tick_Click, 0, 6);
    EXPECT_EQ(column("DEPTH"), "1000.0 1000.0 -1000.0 1000.0 1001.0 1001.0 1001.0 1001.0");
    click(&depth::cmd_add_foot_tick_Click, 1, 6);
    EXPECT_EQ(column("CGTESTNUM"), "1.0 1.0 1.0 1.0 1.0 -1.0 1.0 1.0");
    click(&depth::cmd_rem_foot_tick_Click, 1, 2);
    EXPECT_FALSE(column("CGTESTNUM").contains('-'));

    click(&depth::cmd_rem_foot_tick_Click, 0, 4);
    EXPECT_EQ(column("DEPTH"), plain);
    click(&depth::cmd_rem_foot_tick_Click, 0, 4);
    click(&depth::cmd_rem_foot_tick_Click, 1, 4);
    ASSERT_EQ(dialogs.boxes.size(), 2u);
    EXPECT_EQ(dialogs.boxes[0].text, "Ft not found to remove");
    EXPECT_EQ(dialogs.boxes[1].text, "Numbering stop not found to remove");
    EXPECT_FALSE(ws.db.Gdb_busy);
}

TEST_F(GeoEdit, RenumberCountsTicksAndChangesAndEndsAtAStop) {
    auto renumbered = [](const std::vector<Rec>& recs, int direction, int from,
                         const char* startAt) {
        GeoJob j;
        j.write(recs);
        const QString raw = j.column("DEPTH_RAW");
        j.renumber(direction, from, startAt);
        EXPECT_EQ(j.column("DEPTH_RAW"), raw) << "the raw depth stays";
        return j.column("DEPTH");
    };
    // Going down: ticks, fractions kept, the start number at the first, a stop.
    EXPECT_EQ(renumbered({{10.25}, {10.25}, {-10.5}, {-10.5}, {10.5}, {15, true}, {15}, {17}, {18}},
                         1, 1, "2000"),
              "10.25 10.25 2001.5 2002.5 2002.5 2003.0 2003.0 17.0 18.0");
    EXPECT_EQ(renumbered({{500}, {505}, {505}, {502}, {502}}, 0, 5, nullptr),
              "500.0 501.0 501.0 502.0 502.0")
        << "going up from the newest";
}

TEST_F(GeoEdit, RefusalsChangeNothingAndARestoreGivesTheRawDepthBack) {
    write(Feet(1000, 5, 6));
    const QString raw = column("DEPTH_RAW");
    click(&depth::cmd_add_foot_tick_Click, 0, 4);

    // The stretch commands share their selection check and every command
    // its busy check: one case each stands for all of them.
    const QString ticked = dump();
    depth::cmd_del_sel_ticks_Click(ws);
    EXPECT_EQ(dump(), ticked) << "delete ticks, no selection";
    level(10);
    ws.chart.ln_selecter_Y2 += 15;
    depth::cmd_add_foot_tick_Click(ws, 0);
    EXPECT_EQ(dump(), ticked) << "tick, line not level";
    level(10);
    ws.chart.Gchart_busy = true;
    depth::cmd_add_foot_tick_Click(ws, 0);
    EXPECT_EQ(dump(), ticked) << "tick, chart drawing";
    ws.chart.Gchart_busy = false;
    select(3, 30);
    ws.db.Gdb_busy = true;
    depth::cmd_Mark_GU_Click(ws, 1);
    EXPECT_EQ(dump(), ticked) << "mark, busy";
    ws.db.Gdb_busy = false;

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

    // All, answered No: nothing.
    dialogs.answers.push_back(Answer::No);
    depth::cmd_restore_all_geo_Click(ws);
    EXPECT_EQ(column("DEPTH").split(' '), part);
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
    dialogs.answers.push_back(Answer::Yes);
    depth::cmd_restore_all_geo_Click(ws);
    const QStringList d = column("DEPTH").split(' ');
    const QStringList expected = {"100.0", "100.2", "100.5", "100.7", "101.0",
                                  "101.6", "102.3", "103.0", "104.0", "104.0"};
    for (int i = 0; i < expected.size(); ++i) EXPECT_EQ(d[i], expected[i]) << "record " << i + 1;
    EXPECT_EQ(d[1408], "104.0") << "the long foot stays as it was";
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

// Counts rows down and kills the process at 0, with no clean-up of any kind.
void DieAtZero(void* left, int, const char*, const char*, sqlite3_int64) {
    if (--*static_cast<int*>(left) == 0) raise(SIGKILL);
}

// The child process that runs the command dies by SIGKILL in the middle of
// its writes; the file is then whole and exactly as before. Run to its end,
// the same command does change the file.
TEST(GeoKill, AKilledCommandLeavesTheJobAsBefore) {
    struct Case {
        const char* name;
        std::function<void(GeoJob&)> command;
    };
    const Case cases[] = {
        {"renumber", [](GeoJob& j) { j.renumber(1, 2, "5000"); }},
        {"range delete",
         [](GeoJob& j) {
             j.select(100, 15000);
             j.dialogs.answers.push_back(platform::Answer::Yes);
             store::cmd_del_from_db_Click(j.ws);
         }},
    };
    for (const Case& c : cases) {
        GeoJob j;
        j.write(GeoJob::Feet(1000, 2000, 10));
        const QString before = j.dump();
        // The child opens its own connection: none may cross the fork.
        store::CloseSharedDb(j.ws);

        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            j.open();
            int left = 5000;
            sqlite3_update_hook(j.ws.db.Gdb.handle(), &DieAtZero, &left);
            c.command(j);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
            << c.name << ": the command ended before the kill";

        EXPECT_EQ(testkit::RawDb(j.job).integrity(), "ok") << c.name;
        EXPECT_EQ(j.dump(), before) << c.name << ": half a command is in the file";

        j.open();
        c.command(j);
        EXPECT_NE(j.dump(), before) << c.name << ": the command did nothing";
        EXPECT_EQ(testkit::RawDb(j.job).integrity(), "ok") << c.name;
    }
}

} // namespace
