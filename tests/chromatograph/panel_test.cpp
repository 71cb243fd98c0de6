#include "chro_fixture.h"
#include "chromatograph/chro_timers.h"

#include <csignal>
#include <numeric>
#include <sqlite3.h>
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
    // The distinct C1 values of a run's records, as the engine prints them.
    QString c1Of(int test) const {
        return testkit::RawDb(st.job, testkit::RawDb::Access::ReadOnly)
            .value(QString("SELECT group_concat(DISTINCT C1) FROM OMBRI_DB_010 "
                           "WHERE CGTESTNUM = %1")
                       .arg(test));
    }
};

TEST_F(PanelTest, AChosenPeakIsTaughtWithTheInstrumentsAllowanceOrLapses) {
    loadWhole();
    struct Case {
        int button; // 0 = C1 .. 6 = NC5
        int sample; // under the pointer; six seconds a sample
        QString command;
        QString message;
    };
    // C2 gets its six seconds back, NC5 is taught six short; C3's twelve
    // are the simulator's test.
    const Case cases[] = {
        {1, 12, "WRITEETIME C2 72", "C2 Time Has Been Set To 72 Seconds"},
        {6, 33, "WRITEETIME NC5 192", "NC5 Time Has Been Set To 192 Seconds"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command.toStdString());
        sent.clear();
        cmd_set_Click(ws, c.button);
        pb_chro_MouseMove(ws, pointerX(c.sample), 3000, false);
        EXPECT_EQ(ws.fm_chro.lbl_cg_time.caption(), QString::number(6 * c.sample));
        EXPECT_TRUE(ws.chro.ln_V.Visible);
        pb_chro_DblClick(ws);
        EXPECT_EQ(sent, QStringList{c.command + "\r"});
        EXPECT_EQ(st.lastMessage(), c.message);
        EXPECT_TRUE(
            st.folder.read("COMMAND_LOG.TXT").contains("COMMAND OUTPUT TO KW: " + c.command));
        // The choice is over.
        EXPECT_EQ(ws.chro.PeakToSet, 0);
        EXPECT_FALSE(ws.fm_help.form.visible());
    }
    // Without a chosen peak a double click sends nothing, and the pointer
    // drags the base line instead.
    sent.clear();
    pb_chro_DblClick(ws);
    EXPECT_TRUE(sent.isEmpty());
    pb_chro_MouseMove(ws, pointerX(10), 5000, true);
    EXPECT_EQ(ws.chro.CgZeroY, 5000);
    // Outside the trace the pointer moves nothing.
    cmd_set_Click(ws, 2);
    pb_chro_MouseMove(ws, 4450, 3000, false);
    EXPECT_FALSE(ws.chro.ln_V.Visible);

    // Not double clicked, the choice lapses by itself.
    for (int tick = 0; tick < 299; ++tick) fm_chro_Timer2_Timer(ws);
    EXPECT_EQ(ws.chro.PeakToSet, 3) << "still waiting on the last tick but one";
    fm_chro_Timer2_Timer(ws);
    EXPECT_EQ(ws.chro.PeakToSet, 0);
    EXPECT_EQ(ws.fm_chro.cmd_set[2].backColor(), forms::color::Button);
    EXPECT_FALSE(ws.fm_chro.lbl_dbl_clk.visible());

    // A second press ends the choice at the next tick.
    cmd_set_Click(ws, 0);
    cmd_set_Click(ws, 4);
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
    // The panel's own setting of the size slider asks for no redraw, and
    // the slider and the gain on the setup panel agree both ways.
    ws.settings.CgVisibleGain = 5000;
    fm_chro_Load(ws);
    EXPECT_FALSE(ws.chro.CgRedrawPending);
    vs_cg_vis_size_Change(ws);
    EXPECT_EQ(ws.fm_setup.txt_cg_gain.text(), "5000");
}

TEST_F(PanelTest, SlidersSplitOneHundredPercentAndTheCommitWritesOnlyTheReportingGroup) {
    write({{1, 40}, {2, 40}, {3, 10}, {4, 40}, {5, 40}});
    // Run 3 is incomplete; run 4's records report it.
    view(45, 60);
    ASSERT_EQ(run().CgTestNum, 3);
    std::map<int, QString> before;
    for (int test : {1, 2, 3, 5}) before[test] = c1Of(test);
    // All seven at nothing is an even split; the last split set is kept.
    for (const auto& values :
         std::vector<std::array<int, 7>>{{0, 0, 0, 0, 0, 0, 0}, {50, 20, 10, 10, 5, 5, 0}}) {
        const int total = std::accumulate(values.begin(), values.end(), 0);
        for (int g = 0; g < 7; ++g) ws.fm_chro.VS_c[g].setValue(values[g]);
        VS_c_Change(ws, 0);
        for (int g = 0; g < 7; ++g) {
            const double want = total ? 100.0 * values[g] / total : 100.0 / 7;
            EXPECT_NEAR(run().CgPct[g], want, 1e-9) << total << " " << g;
            EXPECT_NEAR(run().CgC[g], want / 100 * run().CgGasUnits, 1e-9);
        }
    }
    // Set from code under the guard, a slider changes nothing.
    ws.chro.run.CgSliderGuard = true;
    ws.fm_chro.VS_c[3].setValue(90);
    VS_c_Change(ws, 3);
    ws.chro.run.CgSliderGuard = false;

    ws.db.Grecords.SetAbsolutePosition(7);
    cmd_Commit_Click(ws);
    EXPECT_EQ(ws.db.Grecords.AbsolutePosition(), 7);
    for (const auto& [test, c1] : before) EXPECT_EQ(c1Of(test), c1) << test;
    // Half of each record's gas units (104) is methane now.
    EXPECT_EQ(c1Of(4).toDouble(), 52);
    EXPECT_FALSE(ws.db.Gdb_error);
}

TEST_F(PanelTest, KilledCommitLeavesTheRunAllOldOrAllNew) {
    // A long reporting group, so that a kill can land inside the writes.
    write({{1, 40}, {2, 40}, {3, 3000}});
    store::CloseSharedDb(ws);
    for (int killAfter : {1, 200, 2000, 0}) {
        SCOPED_TRACE(killAfter);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // The child commits and dies on the engine's own progress
            // callback, part way through the transaction.
            store::PrimeLastRecord(ws);
            view(5, 20);
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
        const QString c1 = c1Of(3);
        EXPECT_FALSE(c1.contains(',')) << "a mix of old and new: " << c1.toStdString();
        EXPECT_EQ(c1.toDouble(), killAfter > 0 ? ReportedGas(3)[0] : 103);
        EXPECT_EQ(testkit::RawDb(st.job).integrity(), "ok");
    }
}

} // namespace
} // namespace chrotest
