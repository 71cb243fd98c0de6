// The long passes over a job of a million records (about 69 days of a well
// drilled by the drilling model), against the floor: what the sqlite3 tool
// takes for one statement that reads the same columns in packet order, and
// for one that rewrites LAG_GU and DATA1 of every row.
//
// The job is made once (big_job.h).
#include "big_job.h"
#include "depth/lag.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {

using bigjob::Floor;
using bigjob::Job;

// A workstation over a temporary program folder, working on the job.
struct Station {
    QTemporaryDir dir;
    Workstation ws{dir.path()};
    explicit Station(bool byStrokes = true) {
        ws.fm_Gas_Chart.txt_db_path.setText(Job());
        ws.fm_setup.op_lag_calc_Str.setValue(byStrokes ? 1 : 0);
        ws.fm_setup.op_lag_calc_Time.setValue(byStrokes ? 0 : 1);
        depth::tmr_lag_calc_Timer(ws);
    }
};

void CheckNoError(benchmark::State& state, Workstation& ws) {
    if (ws.db.Gdb_error) state.SkipWithError("the pass failed; see ERR_LOG.TXT");
}

void StrokesPass(benchmark::State& state) {
    Station s(true);
    for (auto _ : state) depth::RecalculateLag(s.ws, 0, 0, 0);
    CheckNoError(state, s.ws);
}

void TimePass(benchmark::State& state) {
    Station s(false);
    for (auto _ : state) depth::RecalculateLag(s.ws, 0, 0, 0);
    CheckNoError(state, s.ws);
}

// What the 6 s timer costs on a long job: the newest 400 records.
void RoutinePass(benchmark::State& state) {
    Station s(true);
    for (auto _ : state) depth::RecalculateLag(s.ws, 400, 0, 0);
    CheckNoError(state, s.ws);
}

void CollectRopData(benchmark::State& state) {
    Station s;
    for (auto _ : state) depth::Collect_ROP_Data(s.ws);
    if (s.ws.depth.RopMaxDepth <= 0) state.SkipWithError("nothing collected");
}

void FixTotalStrokes(benchmark::State& state) {
    Station s;
    for (auto _ : state) depth::Fix_total_strokes(s.ws);
    if (s.ws.depth.Gtotal_strokes <= 0) state.SkipWithError("no stroke total");
}

void FloorReadLag(benchmark::State& state) {
    Floor(state, "SELECT DEPTH, TOTAL_STROKES, ERR_TXT, MIN_FT, FT_HR, DT, LAG_GU, DATA1 "
                 "FROM OMBRI_DB_010 ORDER BY PACKET_NUM;");
}

void FloorReadRop(benchmark::State& state) {
    Floor(state, "SELECT DEPTH, LAG_GU, GAS_UNITS, ERR_TXT, KW7001, KW7003, KW7005, KW7007, "
                 "GAMMA, GAMMA_LAG, C1, C2, C3, IC4, NC4, IC5, NC5, DATA1, MIN_FT, O2, CO2, "
                 "H2S, DT, PACKET_NUM FROM OMBRI_DB_010 ORDER BY PACKET_NUM;");
}

void FloorReadStrokes(benchmark::State& state) {
    Floor(state, "SELECT TOTAL_SPM, TOTAL_STROKES FROM OMBRI_DB_010 ORDER BY PACKET_NUM;");
}

void FloorUpdateLag(benchmark::State& state) {
    Floor(state, "UPDATE OMBRI_DB_010 SET LAG_GU = DEPTH, DATA1 = MIN_FT;");
}

} // namespace

BENCHMARK(StrokesPass)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(TimePass)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(RoutinePass)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(CollectRopData)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FixTotalStrokes)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FloorReadLag)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FloorReadRop)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FloorReadStrokes)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FloorUpdateLag)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv);
}
