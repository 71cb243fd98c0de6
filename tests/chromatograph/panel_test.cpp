#include "chro_fixture.h"
#include "chromatograph/chro_timers.h"

#include <csignal>
#include <numeric>
#include <sys/wait.h>
#include <unistd.h>

namespace chrotest {
namespace {

using namespace chromatograph;

class PanelTest : public ChroTest {
  protected:
    QStringList sent;
    PanelTest() {
        ws.services.send_to_instrument = [this](Workstation&, const QString& line) {
            sent << line;
            return true;
        };
    }
    // Run 2 (40 records, a whole run) on show, reported by run 3.
    void loadWhole() {
        write({{1, 40}, {2, 40}, {3, 10}, {4, 40}});
        select(5, 20);
        cmd_view_cg_Click(ws);
    }
    // X of the pointer over sample i.
    double X(int i) const { return 300 + (i + 0.5) * 4100.0 / run().CgCount; }
};

TEST_F(PanelTest, DoubleClickTeachesThePeakTimeWithTheInstrumentsAllowance) {
    loadWhole();
    struct Case {
        int button; // 0 = C1 .. 6 = NC5
        int sample; // under the pointer; six seconds a sample
        QString command;
        QString message;
    };
    const Case cases[] = {
        {0, 10, "WRITEETIME C1 60", "C1 Time Has Been Set To 60 Seconds"},
        {1, 12, "WRITEETIME C2 72", "C2 Time Has Been Set To 72 Seconds"},
        {2, 15, "WRITEETIME C3 96", "C3 Time Has Been Set To 96 Seconds"},
        {3, 20, "WRITEETIME IC4 114", "IC4 Time Has Been Set To 114 Seconds"},
        {6, 33, "WRITEETIME NC5 192", "NC5 Time Has Been Set To 192 Seconds"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command.toStdString());
        sent.clear();
        cmd_set_Click(ws, c.button);
        EXPECT_TRUE(ws.fm_chro.lbl_dbl_clk.visible());
        pb_chro_MouseMove(ws, X(c.sample), 3000, false);
        EXPECT_EQ(ws.fm_chro.lbl_cg_time.caption(), QString::number(6 * c.sample));
        EXPECT_TRUE(ws.chro.ln_V.Visible);
        EXPECT_DOUBLE_EQ(ws.chro.ln_V.X1, X(c.sample));
        pb_chro_DblClick(ws);
        EXPECT_EQ(sent, QStringList{c.command + "\r"});
        EXPECT_EQ(st.lastMessage(), c.message);
        EXPECT_TRUE(
            st.folder.read("COMMAND_LOG.TXT").contains("COMMAND OUTPUT TO KW: " + c.command));
        // The choice is over.
        EXPECT_EQ(ws.chro.PeakToSet, 0);
        EXPECT_FALSE(ws.fm_chro.lbl_dbl_clk.visible());
        EXPECT_FALSE(ws.chro.ln_V.Visible);
        EXPECT_FALSE(ws.fm_help.form.visible());
    }
    // Without a chosen peak a double click does nothing, and the pointer
    // drags the base line instead.
    sent.clear();
    ws.fm_Gas_Chart.txt_message.setText("");
    pb_chro_MouseMove(ws, X(10), 3000, false);
    pb_chro_DblClick(ws);
    EXPECT_TRUE(sent.isEmpty());
    EXPECT_EQ(st.lastMessage(), "");
    EXPECT_FALSE(ws.fm_chro.lbl_cg_time.visible());
    pb_chro_MouseMove(ws, X(10), 5000, true);
    EXPECT_EQ(ws.chro.CgZeroY, 5000);
    // Outside the trace the pointer moves nothing.
    cmd_set_Click(ws, 0);
    pb_chro_MouseMove(ws, 4450, 3000, false);
    EXPECT_FALSE(ws.chro.ln_V.Visible);
}

TEST_F(PanelTest, ChosenPeakFlashesAndLapsesByItself) {
    loadWhole();
    cmd_set_Click(ws, 2);
    ASSERT_EQ(ws.chro.PeakToSet, 3);
    std::set<long> colours;
    for (int tick = 0; tick < 299; ++tick) {
        fm_chro_Timer2_Timer(ws);
        colours.insert(ws.fm_chro.cmd_set[2].backColor());
        EXPECT_EQ(ws.fm_chro.cmd_set[0].backColor(), forms::color::Button);
    }
    EXPECT_EQ(colours, (std::set<long>{forms::color::Button, ws.settings.ColorC3}));
    EXPECT_EQ(ws.chro.PeakToSet, 3) << "still waiting on the last tick but one";
    fm_chro_Timer2_Timer(ws);
    EXPECT_EQ(ws.chro.PeakToSet, 0);
    EXPECT_EQ(ws.fm_chro.cmd_set[2].backColor(), forms::color::Button);
    EXPECT_FALSE(ws.fm_chro.lbl_dbl_clk.visible());

    // A second press ends the choice at the next tick.
    cmd_set_Click(ws, 0);
    cmd_set_Click(ws, 4);
    EXPECT_EQ(ws.chro.PeakToSet, 1);
    fm_chro_Timer2_Timer(ws);
    EXPECT_EQ(ws.chro.PeakToSet, 0);

    // Runs that are not whole cannot be timed.
    for (bool* flag : {&ws.chro.run.CgIncomplete, &ws.chro.run.CgEndOfData}) {
        *flag = true;
        cmd_set_Click(ws, 0);
        EXPECT_EQ(ws.chro.PeakToSet, 0);
        *flag = false;
    }
}

TEST_F(PanelTest, SlidersAlwaysSplitOneHundredPercent) {
    loadWhole();
    const std::vector<std::array<int, 7>> raw = {
        {100, 0, 0, 0, 0, 0, 0}, {100, 100, 100, 100, 100, 100, 100},
        {0, 0, 0, 0, 0, 0, 0},   {33, 33, 33, 0, 0, 0, 1},
        {7, 0, 0, 0, 0, 0, 0},   {90, 5, 2, 1, 1, 0, 0}};
    for (const auto& values : raw) {
        const int total = std::accumulate(values.begin(), values.end(), 0);
        SCOPED_TRACE(total);
        for (int g = 0; g < 7; ++g) ws.fm_chro.VS_c[g].setValue(values[g]);
        VS_c_Change(ws, 0);
        const auto& pct = run().CgPct;
        EXPECT_NEAR(std::accumulate(pct.begin(), pct.end(), 0.0), 100, 1e-9);
        for (int g = 0; g < 7; ++g) {
            const double want = total ? 100.0 * values[g] / total : 100.0 / 7;
            EXPECT_NEAR(pct[g], want, 1e-9);
            EXPECT_NEAR(run().CgC[g], want / 100 * run().CgGasUnits, 1e-9);
        }
    }
    // Set from code under the guard, a slider changes nothing.
    const auto before = run().CgPct;
    ws.chro.run.CgSliderGuard = true;
    ws.fm_chro.VS_c[3].setValue(50);
    VS_c_Change(ws, 3);
    ws.chro.run.CgSliderGuard = false;
    EXPECT_EQ(run().CgPct, before);
}

TEST_F(PanelTest, BurstOfMovesCostsOneRedrawATick) {
    loadWhole();
    fm_chro_Timer1_Timer(ws);
    const int presented = canvas->presented;
    for (int move = 0; move < 100; ++move) {
        ws.fm_chro.VS_c[move % 7].setValue(move % 50);
        VS_c_Change(ws, move % 7);
        ws.fm_chro.vs_cg_vis_size.setValue(150 + move % 40);
        vs_cg_vis_size_Change(ws);
    }
    EXPECT_EQ(canvas->presented, presented) << "nothing drawn before the tick";
    fm_chro_Timer1_Timer(ws);
    EXPECT_EQ(canvas->presented, presented + 1);
    fm_chro_Timer1_Timer(ws);
    EXPECT_EQ(canvas->presented, presented + 1) << "nothing left to draw";
    // The size slider's last place is the gain, shown on the setup panel.
    EXPECT_EQ(ws.settings.CgVisibleGain, (201 - (150 + 99 % 40)) * 1000);
    EXPECT_EQ(ws.fm_setup.txt_cg_gain.text(), text::Str(ws.settings.CgVisibleGain));
    // The panel's own setting of the slider asks for no redraw.
    ws.settings.CgVisibleGain = 5000;
    fm_chro_Load(ws);
    EXPECT_EQ(ws.fm_chro.vs_cg_vis_size.value(), 196);
    EXPECT_FALSE(ws.chro.CgRedrawPending);
}

// C1 of every record by test number: the sets of values each group holds.
std::map<long, std::set<double>> C1ByTest(const QString& job) {
    testkit::RawDb raw(job, testkit::RawDb::Access::ReadOnly);
    std::map<long, std::set<double>> out;
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(raw.handle(), "SELECT CGTESTNUM, C1 FROM OMBRI_DB_010", -1, &st, nullptr);
    while (sqlite3_step(st) == SQLITE_ROW)
        out[sqlite3_column_int(st, 0)].insert(sqlite3_column_double(st, 1));
    sqlite3_finalize(st);
    return out;
}

TEST_F(PanelTest, CommitRewritesOnlyTheGroupThatReportsTheRun) {
    write({{1, 40}, {2, 40}, {3, 10}, {4, 40}, {5, 40}});
    // Run 3 is incomplete; run 4's records report it.
    select(45, 60);
    cmd_view_cg_Click(ws);
    ASSERT_EQ(run().CgTestNum, 3);
    ASSERT_TRUE(run().CgIncomplete);
    const auto before = C1ByTest(st.job);
    const int values[7] = {50, 20, 10, 10, 5, 5, 0};
    for (int g = 0; g < 7; ++g) ws.fm_chro.VS_c[g].setValue(values[g]);
    VS_c_Change(ws, 0);
    ws.db.Grecords.SetAbsolutePosition(7);
    cmd_Commit_Click(ws);
    EXPECT_EQ(ws.db.Grecords.AbsolutePosition(), 7);
    const auto after = C1ByTest(st.job);
    for (long test : {1L, 2L, 3L, 5L}) EXPECT_EQ(after.at(test), before.at(test)) << test;
    // Half of each record's gas units (104) is methane now.
    EXPECT_EQ(after.at(4), std::set<double>{52});
    testkit::RawDb raw(st.job, testkit::RawDb::Access::ReadOnly);
    EXPECT_EQ(
        raw.number(
            "SELECT count(*) FROM OMBRI_DB_010 WHERE CGTESTNUM = 4 AND abs(C3 - 10.4) < 1e-9"),
        40);
    EXPECT_FALSE(ws.db.Gdb_error);
}

TEST_F(PanelTest, KilledCommitLeavesTheRunAllOldOrAllNew) {
    // A long reporting group, so that a kill can land inside the writes.
    write({{1, 40}, {2, 40}, {3, 3000}});
    store::CloseSharedDb(ws);
    for (int killAfter : {1, 20, 200, 2000, 0}) {
        SCOPED_TRACE(killAfter);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // The child commits and dies on the engine's own progress
            // callback, part way through the transaction.
            store::PrimeLastRecord(ws);
            select(5, 20);
            cmd_view_cg_Click(ws);
            for (int g = 0; g < 7; ++g) ws.fm_chro.VS_c[g].setValue(g == 0 ? 100 : 0);
            VS_c_Change(ws, 0);
            static int countdown;
            countdown = killAfter;
            if (killAfter > 0)
                sqlite3_progress_handler(
                    ws.db.Grecords.Parent().handle(), 100,
                    [](void*) {
                        if (--countdown == 0) raise(SIGKILL);
                        return 0;
                    },
                    nullptr);
            cmd_Commit_Click(ws);
            _exit(ws.db.Gdb_error ? 2 : 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (killAfter > 0) {
            ASSERT_TRUE(WIFSIGNALED(status));
        } else {
            ASSERT_TRUE(WIFEXITED(status));
            ASSERT_EQ(WEXITSTATUS(status), 0);
        }
        const auto c1 = C1ByTest(st.job);
        EXPECT_EQ(c1.at(3).size(), 1u) << "a mix of old and new";
        const double want = killAfter > 0 ? ReportedGas(3)[0] : 103;
        EXPECT_EQ(*c1.at(3).begin(), want);
        EXPECT_EQ(testkit::RawDb(st.job).integrity(), "ok");
    }
}

} // namespace
} // namespace chrotest
