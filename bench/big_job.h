#pragma once
// The million-record job the benchmarks of long passes share (about 69 days
// of a well drilled by the drilling model), and the floor they are measured
// against: what the sqlite3 tool takes for one statement on it.
//
// The job is made once into the system's temporary folder and reused by
// later runs; delete gaschart-depth-bench there to make it again.
#include "db/recordset.h"
#include "db/schema.h"
#include "tools/common/drilling_model.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <functional>
#include <sys/resource.h>

namespace bigjob {

constexpr int kRecords = 1000000;

inline QString JobPath() {
    return QDir::tempPath() + "/gaschart-depth-bench/JOB_1M_v3.db";
}

inline int32_t CountRecords(const QString& path) {
    try {
        db::Database db = db::OpenDatabase(path);
        return db.OpenRecordset(db::RecordQuery(db::kRecordTable)).RecordCount();
    } catch (const db::DbError&) {
        return -1;
    }
}

// The job as the live writer would have left it, written through the store
// in large transactions.
inline void MakeJob(const QString& path) {
    QDir().mkpath(QFileInfo(path).path());
    QFile::remove(path);
    QFile::remove(path + "-wal");
    QFile::remove(path + "-shm");
    db::MakeBlankJob(path, db::kRecordTable);
    db::Database db = db::OpenDatabase(path);
    db::Recordset rs = db.OpenRecordset(db::RecordQuery(db::kRecordTable));
    drill::Model model;
    long total = 0;
    db.BeginTrans();
    for (int i = 0; i < kRecords; ++i) {
        const drill::Sample s = model.next();
        const long spm = static_cast<long>(s.spm);
        // The record writer's rule: a tenth of a minute's strokes per row.
        total = static_cast<long>(spm / 10.0 + total);
        const auto& f = s.fields;
        rs.AddNew();
        rs.SetField("ID", i + 1);
        rs.SetField("PACKET_NUM", static_cast<long long>(s.packetNumber));
        rs.SetField("SERIAL_NUM", f[0]);
        rs.SetField("DATE_TXT", f[1]);
        rs.SetField("TIME_TXT", f[2]);
        rs.SetField("DT", s.time);
        rs.SetField("DEPTH", f[3].toDouble());
        rs.SetField("DEPTH_RAW", f[3].toDouble());
        rs.SetField("GAS_UNITS", f[4].toDouble());
        rs.SetField("O2", f[5].toDouble());
        rs.SetField("CO2", f[6].toDouble());
        rs.SetField("MIN_FT", f[9].toDouble());
        rs.SetField("FT_HR", f[10].toDouble());
        rs.SetField("H2S", f[19].toDouble());
        rs.SetField("ERR_TXT", s.pumpsOn ? f[20] : f[20] + " *");
        static const char* const kGases[] = {"C1", "C2", "C3", "IC4", "NC4"};
        for (int g = 0; g < 5; ++g) rs.SetField(kGases[g], f[29 + g].toDouble());
        rs.SetField("BIT_DEPTH", s.bitDepth);
        // The writer's columns of two quantities, one on each row in turn.
        const bool second = i % 2 == 1;
        rs.SetField("TEMP", (second ? f[26] : f[8]).toDouble() + (second ? 10000 : 0));
        rs.SetField("SAMPLEVAC", (second ? f[34] : f[12]).toDouble() + (second ? 10000 : 0));
        rs.SetField("VOLTS", (second ? f[23] : f[13]).toDouble() + (second ? 10000 : 0));
        rs.SetField("CHROM_VAC", (second ? f[35] : f[27]).toDouble() + (second ? 10000 : 0));
        rs.SetField("LPH", f[11].toDouble());
        rs.SetField("EXT_AMPS", f[25].toDouble());
        rs.SetField("CGTESTNUM", f[16].toDouble());
        rs.SetField("CGV", f[17].toDouble());
        rs.SetField("TOTAL_SPM", static_cast<double>(spm));
        rs.SetField("TOTAL_STROKES", static_cast<double>(total));
        rs.Update();
        if (i % 50000 == 49999) {
            db.CommitTrans();
            db.BeginTrans();
            std::fprintf(stderr, "\rmaking the job: %d records", i + 1);
        }
    }
    db.CommitTrans();
    std::fprintf(stderr, "\n");
}

inline const QString& Job() {
    static const QString path = [] {
        const QString p = JobPath();
        if (CountRecords(p) != kRecords) MakeJob(p);
        return p;
    }();
    return path;
}

// CPU seconds of the finished child processes so far: on a shared machine
// the tool's own CPU time is a steadier floor than its wall time.
inline double ChildCpuSeconds() {
    rusage u{};
    getrusage(RUSAGE_CHILDREN, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) +
           double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// One statement of the sqlite3 tool on the job, its output thrown away.
inline void Floor(benchmark::State& state, const QString& sql) {
    const double cpu = ChildCpuSeconds();
    for (auto _ : state) {
        QProcess p;
        p.setStandardOutputFile(QProcess::nullDevice());
        p.start("sqlite3", {"-batch", Job(), sql});
        if (!p.waitForFinished(-1) || p.exitCode() != 0)
            state.SkipWithError("the sqlite3 tool failed");
    }
    state.counters["tool_cpu_ms"] = (ChildCpuSeconds() - cpu) * 1000 / double(state.iterations());
}

// Runs `job` while a 10 ms timer notes the longest gap between two of its
// ticks (and to the end of the job): how long, in milliseconds, the
// operator's screen stood still at worst.
inline double LongestLoopGap(const std::function<void()>& job) {
    QTimer tick;
    QElapsedTimer since;
    double longest = 0;
    const auto note = [&] {
        longest = std::max(longest, double(since.nsecsElapsed()) / 1e6);
        since.restart();
    };
    tick.setInterval(10);
    QObject::connect(&tick, &QTimer::timeout, note);
    since.start();
    tick.start();
    job();
    note();
    return longest;
}

// A benchmark program's run over the big job, or the program's own copy of
// it (`makeJob`): made (or found) once before the first case, so no case
// pays for it. The caller makes its Qt application first.
inline int RunOverTheJob(
    int argc, char** argv, const std::function<void()>& makeJob = [] { Job(); }) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    makeJob();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace bigjob
