// Loading and drawing one chromatograph run on the job of a million records,
// as "View Chromatograph" does from a stretch chosen on the chart: at the
// newest run and at the oldest, on an image the size of the panel's picture.
// Beside it the floor: the sqlite3 tool reading the same rows.
#include "big_job.h"
#include "chromatograph/chromatograph.h"
#include "store/lifecycle.h"
#include "workstation/image_canvas.h"
#include "workstation/workstation.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

enum Where { Newest, Oldest };

struct Station {
    QTemporaryDir dir;
    Workstation ws{dir.path()};
    explicit Station(Where where) {
        ws.fm_Gas_Chart.txt_db_path.setText(bigjob::Job());
        ws.loop.Gstarting_up = false;
        ws.fm_setup.txt_cg_gain.setText("5000");
        ws.chro.pb_chro =
            std::make_shared<station::ImageCanvas>(900, 720, chromatograph::kPictureWidth);
        chromatograph::fm_chro_Load(ws);
        store::PrimeLastRecord(ws);
        // A stretch of the chart that holds a whole run, a run and a half
        // from either end of the job.
        const int32_t from = where == Newest ? ws.chart.LastRecord - 100 : 60;
        ws.chart.RowRecordId[1000] = from;
        ws.chart.RowRecordId[2000] = from + 20;
        ws.chart.SelectStartY = 1000;
        ws.chart.SelectEndY = 2000;
    }
};

void Check(benchmark::State& state, Workstation& ws) {
    if (ws.db.Gdb_error || ws.chro.run.CgCount < 30) state.SkipWithError("no run was drawn");
    state.counters["samples"] = ws.chro.run.CgCount;
    state.counters["first_record"] = ws.chro.run.CgFirstRecord;
}

void ViewRun(benchmark::State& state) {
    Station s(static_cast<Where>(state.range(0)));
    for (auto _ : state) chromatograph::cmd_view_cg_Click(s.ws);
    Check(state, s.ws);
}

// The next run after the one on show, loaded and drawn.
void NextRun(benchmark::State& state) {
    Station s(static_cast<Where>(state.range(0)));
    chromatograph::cmd_view_cg_Click(s.ws);
    const int32_t shown = s.ws.chro.run.CgFirstRecord;
    for (auto _ : state) {
        state.PauseTiming();
        chromatograph::cmd_view_cg_Click(s.ws);
        state.ResumeTiming();
        chromatograph::get_next_cg(s.ws);
    }
    Check(state, s.ws);
    if (s.ws.chro.run.CgFirstRecord <= shown && state.range(0) == Oldest)
        state.SkipWithError("next did not move on");
}

// The tool reads the rows of the run and the record group that reports it,
// by row id (the same as ID in this job), the cheapest way there is.
void Floor(benchmark::State& state) {
    Station s(static_cast<Where>(state.range(0)));
    chromatograph::cmd_view_cg_Click(s.ws);
    const auto& r = s.ws.chro.run;
    bigjob::Floor(state, QString("SELECT * FROM OMBRI_DB_010 WHERE rowid BETWEEN %1 AND %2;")
                             .arg(r.CgFirstRecord)
                             .arg(r.CgLastRecord + 40));
    state.counters["rows"] = r.CgLastRecord + 40 - r.CgFirstRecord + 1;
}

} // namespace

BENCHMARK(ViewRun)->Arg(Newest)->Arg(Oldest)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(NextRun)->Arg(Newest)->Arg(Oldest)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(Floor)->Arg(Newest)->Arg(Oldest)->Unit(benchmark::kMillisecond)->Iterations(5);

int main(int argc, char** argv) {
    // Fonts for the image need the GUI side of Qt, without a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv);
}
