// The file products on a job of a million records against their floors:
// each export against the sqlite3 tool writing the same rows as CSV
// (sqlite3 -csv JOB "SELECT ..." > file), and the OMD import of a million
// lines against the tool's .import of the same lines into a plain table.
// All figures are wall-clock times (the tool is a child process).
//
// The job is the shared one of big_job.h, made once and reused.
#include "big_job.h"
#include "db/recordset.h"
#include "db/schema.h"
#include "products/depth_las.h"
#include "products/omd.h"
#include "products/time_las.h"
#include "products/xls_file.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

using bigjob::JobPath;
using bigjob::kRecords;

QTemporaryDir& Scratch() {
    static QTemporaryDir dir;
    return dir;
}

struct Station {
    QTemporaryDir dir;
    Workstation ws{dir.path()};
    explicit Station(const QString& job) { ws.fm_Gas_Chart.txt_db_path.setText(job); }
};

// The columns each writer reads, in packet order: the floor reads the same.
const char* const kRopColumns =
    "DEPTH, LAG_GU, GAS_UNITS, ERR_TXT, KW7001, KW7003, KW7005, KW7007, GAMMA, GAMMA_LAG, C1, C2, "
    "C3, IC4, NC4, IC5, NC5, DATA1, MIN_FT, O2, CO2, H2S, DT, PACKET_NUM";
const char* const kTimeColumns = "DT, DEPTH, LAG_GU, MIN_FT, FT_HR, GAS_UNITS, C1, C2, C3, IC4, "
                                 "NC4, IC5, NC5, GAMMA, O2, CO2, H2S, KW7001, KW7003, KW7005, "
                                 "KW7007";
const char* const kXlsColumns = "DEPTH, LAG_GU, GAS_UNITS, GAMMA, C1, C2, C3, IC4, NC4, IC5, NC5, "
                                "DATA1, MIN_FT, O2, CO2, H2S, KW7001, KW7003, KW7005, KW7007, DT";

QString OmdColumns() {
    QStringList c;
    for (const char* n : products::kOmdColumns) c << n;
    return c.join(", ");
}

// The sqlite3 tool writing the rows of `columns` as CSV into a file.
void Floor(benchmark::State& state, const QString& columns) {
    const QString out = Scratch().path() + "/floor.csv";
    for (auto _ : state) {
        QProcess p;
        p.setStandardOutputFile(out);
        p.start("sqlite3", {"-csv", JobPath(),
                            "SELECT " + columns + " FROM OMBRI_DB_010 ORDER BY PACKET_NUM"});
        if (!p.waitForFinished(-1) || p.exitCode() != 0)
            state.SkipWithError("the sqlite3 tool failed");
    }
    state.counters["bytes"] = double(QFileInfo(out).size());
}

void Write(benchmark::State& state, bool (*writer)(Workstation&, const QString&),
           const char* name) {
    Station s(JobPath());
    const QString out = Scratch().path() + "/" + name;
    double gap = 0;
    for (auto _ : state) {
        gap = std::max(gap, bigjob::LongestLoopGap([&] {
                           if (!writer(s.ws, out))
                               state.SkipWithError("the writer failed; see its error log");
                       }));
    }
    state.counters["bytes"] = double(QFileInfo(out).size());
    state.counters["longest_gap_ms"] = gap;
}

void DepthLas(benchmark::State& state) {
    Write(state, &products::Create_LAS_file, "big.las");
}
void TimeLas(benchmark::State& state) {
    Write(state, &products::Create_LAS_TIME_file, "big_TIME.LAS");
}
void Xls(benchmark::State& state) {
    Write(state, &products::Create_XLS_file, "big.XLS");
}

void Text(benchmark::State& state, products::TextForm form, const char* name) {
    Station s(JobPath());
    const QString out = Scratch().path() + "/" + name;
    double gap = 0;
    for (auto _ : state) {
        gap = std::max(gap, bigjob::LongestLoopGap([&] {
                           if (products::ExportRecords(s.ws, out, form) != kRecords)
                               state.SkipWithError("not every record written");
                       }));
    }
    state.counters["bytes"] = double(QFileInfo(out).size());
    state.counters["longest_gap_ms"] = gap;
}
void Omd(benchmark::State& state) {
    Text(state, products::TextForm::Omd, "big.OMD");
}
void Csv(benchmark::State& state) {
    Text(state, products::TextForm::Csv, "big.CSV");
}

void FloorDepthLas(benchmark::State& state) {
    Floor(state, kRopColumns);
}
void FloorTimeLas(benchmark::State& state) {
    Floor(state, kTimeColumns);
}
void FloorXls(benchmark::State& state) {
    Floor(state, kXlsColumns);
}
void FloorOmd(benchmark::State& state) {
    Floor(state, OmdColumns());
}

// The million lines to import: the export of the big job.
QString OmdLines() {
    static const QString path = [] {
        const QString p = Scratch().path() + "/lines.OMD";
        Station s(JobPath());
        products::ExportRecords(s.ws, p, products::TextForm::Omd);
        return p;
    }();
    return path;
}

void ImportOmd(benchmark::State& state) {
    const QString lines = OmdLines();
    double gap = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString job = Scratch().path() + "/import.db";
        db::RemoveJobFile(job);
        db::MakeBlankJob(job, db::kRecordTable);
        Station s(job);
        state.ResumeTiming();
        gap = std::max(gap, bigjob::LongestLoopGap([&] {
                           if (products::Import_OMD_file(s.ws, lines).added != kRecords)
                               state.SkipWithError("not every line added");
                       }));
    }
    state.counters["longest_gap_ms"] = gap;
}

// The tool's .import of the same lines into a table of 44 text columns
// with the packet number's unique index, as the job has it.
void FloorImport(benchmark::State& state) {
    const QString lines = OmdLines();
    QStringList cols;
    for (int i = 0; i < 44; ++i) cols << QString("c%1").arg(i);
    for (auto _ : state) {
        state.PauseTiming();
        const QString job = Scratch().path() + "/floor_import.db";
        QFile::remove(job);
        state.ResumeTiming();
        QProcess p;
        p.start("sqlite3", {job,
                            "CREATE TABLE t (" + cols.join(", ") +
                                "); CREATE UNIQUE INDEX t_packet ON t (c1);",
                            ".mode csv", ".import " + lines + " t"});
        if (!p.waitForFinished(-1) || p.exitCode() != 0)
            state.SkipWithError("the sqlite3 tool failed");
    }
}

BENCHMARK(FloorDepthLas)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(DepthLas)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(FloorTimeLas)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(TimeLas)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(FloorXls)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(Xls)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(FloorOmd)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(Omd)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(Csv)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
BENCHMARK(FloorImport)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(ImportOmd)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv);
}
