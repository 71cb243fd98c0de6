// The edits of a job of a million records, each one transaction: Restore
// All Geolograph Data, a renumbering from the second record to the newest
// (numbered from 100,000 ft), and the delete of a day's stretch (14,400
// records) chosen on the chart. Reported: the time of the command and the
// longest wait of the event loop (a 10 ms timer) while it runs, which is
// what the operator's screen and the instrument link see.
#include "big_job.h"
#include "depth/geo_edit.h"
#include "store/lifecycle.h"
#include "store/range_delete.h"
#include "tools/common/agreeing_dialogs.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// A copy of the big job with every depth edited half a foot off its raw
// value, open as the program opens it.
struct Station {
    QTemporaryDir dir;
    tools::AgreeingDialogs yes;
    Workstation ws{dir.path(), &yes};
    Station() {
        const QString job = dir.path() + "/JOB.db";
        db::CopyDatabase(bigjob::Job(), job);
        db::OpenDatabase(job).Execute("UPDATE OMBRI_DB_010 SET DEPTH = DEPTH_RAW + 0.5");
        ws.fm_Gas_Chart.txt_db_path.setText(job);
        QString path;
        bool verify = false;
        store::OpenSharedDb(ws, path, verify);
        ws.chart.Gchart_busy = false;
    }
    int64_t count(const QString& where) {
        return db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text())
            .OpenRecordset("SELECT ID FROM OMBRI_DB_010 WHERE " + where)
            .RecordCount();
    }
    void check(benchmark::State& state) {
        if (ws.fm_Gas_Chart.txt_message.text().contains(" Err: ")) {
            std::fprintf(stderr, "%s\n", qPrintable(ws.fm_Gas_Chart.txt_message.text()));
            state.SkipWithError("the command failed");
        }
    }
};

void RestoreAll(benchmark::State& state) {
    Station s;
    double worst = 0;
    for (auto _ : state)
        worst = std::max(worst,
                         bigjob::LongestLoopGap([&] { depth::cmd_restore_all_geo_Click(s.ws); }));
    s.check(state);
    if (s.count("DEPTH <> DEPTH_RAW") != 0) state.SkipWithError("some depths were not restored");
    state.counters["longest_gap_ms"] = worst;
}

void RenumberWholeJob(benchmark::State& state) {
    Station s;
    auto& c = s.ws.chart;
    constexpr int kRow = 2000;
    c.RowRecordId[kRow] = 2;
    c.ln_selecter_Y1 = c.ln_selecter_Y2 = kRow;
    depth::op_renum_Click(s.ws, 1);
    // Numbered from far off, so every record the renumbering reached shows.
    s.ws.fm_Gas_Chart.ck_renum_st_at.setChecked(true);
    s.ws.fm_Gas_Chart.txt_renum_start.setText("100000");
    double worst = 0;
    for (auto _ : state) {
        s.ws.fm_Gas_Chart.ln_selecter.setVisible(true);
        worst = std::max(worst, bigjob::LongestLoopGap([&] { depth::cmd_renum_geo_Click(s.ws); }));
    }
    s.check(state);
    if (s.count("DEPTH < 100000") > 10000) state.SkipWithError("the renumbering stopped early");
    state.counters["longest_gap_ms"] = worst;
}

void DeleteADay(benchmark::State& state) {
    Station s;
    auto& c = s.ws.chart;
    constexpr int32_t kFirst = 500'000, kDay = 14'400;
    c.RowRecordId[2000] = kFirst + kDay;
    c.RowRecordId[2100] = kFirst;
    double worst = 0;
    for (auto _ : state) {
        c.SelectStartY = 2000;
        c.SelectEndY = 2100;
        worst =
            std::max(worst, bigjob::LongestLoopGap([&] { store::cmd_del_from_db_Click(s.ws); }));
    }
    s.check(state);
    // The stretch goes with the record on either side of it.
    if (s.count(QString("ID BETWEEN %1 AND %2").arg(kFirst - 1).arg(kFirst + kDay + 1)) != 0)
        state.SkipWithError("the stretch is still there");
    state.counters["longest_gap_ms"] = worst;
}

} // namespace

BENCHMARK(RestoreAll)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(RenumberWholeJob)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(DeleteADay)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv);
}
