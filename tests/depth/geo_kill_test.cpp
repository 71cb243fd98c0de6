// A command killed half way leaves the job as it was: the child process
// that runs it dies by SIGKILL in the middle of its writes (after a set
// number of rows changed), and the file is then whole and exactly as before.
// Run to its end, the same command does change the file.
#include "geo_fixture.h"

#include "store/range_delete.h"

#include <csignal>
#include <functional>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace geotest;

namespace {

// Counts rows down and kills the process at 0, with no clean-up of any kind.
void DieAtZero(void* left, int, const char*, const char*, sqlite3_int64) {
    if (--*static_cast<int*>(left) == 0) raise(SIGKILL);
}

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
