// The statistics and tally report on a job of a million records (big_job.h),
// against the floor: what the sqlite3 tool takes for one statement that reads
// the columns the report reads, in packet order. The report reads them in
// two passes (the days, then the tally) through the store's recordset.
//
// longest_turn_ms: the longest the event loop waited for a turn during a
// run; it must stay well under 250 ms.
#include "big_job.h"
#include "stats/statistics.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

namespace {

void StatsReport(benchmark::State& state) {
    QTemporaryDir dir;
    Workstation ws(dir.path());
    ws.fm_Gas_Chart.txt_db_path.setText(bigjob::Job());
    ws.fm_setup.txt_stats_filename.setText(dir.filePath("AUTOTALLY.TXT"));
    qint64 longest = 0;
    QElapsedTimer sinceTurn;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout,
                     [&] { longest = std::max(longest, sinceTurn.restart()); });
    for (auto _ : state) {
        ws.fm_setup.txt_stats.setText("");
        sinceTurn.start();
        turn.start(0);
        stats::Generate_Stats_Report(ws);
        longest = std::max(longest, sinceTurn.elapsed());
        turn.stop();
    }
    if (!ws.fm_setup.txt_stats.text().endsWith("Job Done"))
        state.SkipWithError("the report did not finish; see txt_stats");
    if (!ws.fm_setup.txt_stats_output.text().contains("<- Long Connection"))
        state.SkipWithError("the report has no tally");
    state.counters["longest_turn_ms"] = double(longest);
}

void FloorReadStats(benchmark::State& state) {
    bigjob::Floor(state, "SELECT DEPTH, BIT_DEPTH, MIN_FT, GAS_UNITS, DATE_TXT, TIME_TXT, DT "
                         "FROM OMBRI_DB_010 ORDER BY PACKET_NUM;");
}

} // namespace

BENCHMARK(StatsReport)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FloorReadStats)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv);
}
