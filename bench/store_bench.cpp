// The job store on a long job: a generated job of 1,000,000 rows (about
// seventy days of six-second packets), made once in the temporary folder and
// reused by later runs.
//
//   SaveKWData       rows written per second, one transaction a row as live
//   Verify/ordered   the open's checks and re-index with ID already in order
//   Verify/shuffled  the same with every ID wrong, so every row is rewritten
//   RecordsetScan    MoveFirst .. Eof reading five columns
//   ShellScan        the floor: the same columns in the same order through the
//                    SQLite shell, output thrown away
#include "db/schema.h"
#include "store/lifecycle.h"
#include "store/record_writer.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <chrono>

namespace {

constexpr long kRows = 1000000;
const QString kColumns = QStringLiteral("DT, DEPTH, GAS_UNITS, TOTAL_STROKES, ERR_TXT");

QString BenchFolder() {
    const QString dir = QDir::tempPath() + "/gaschart-store-bench";
    QDir().mkpath(dir);
    return dir;
}

long long Count(const QString& path) {
    if (!QFile::exists(path)) return 0;
    try {
        return db::OpenDatabase(path)
            .OpenRecordset(db::RecordQuery(db::kRecordTable))
            .RecordCount();
    } catch (const db::DbError&) {
        return 0;
    }
}

// Rows as the writer leaves them: every column set, times six seconds apart,
// depth growing, the diagnostic pairs alternating.
void Generate(const QString& path) {
    db::RemoveJobFile(path);
    db::MakeBlankJob(path, db::kRecordTable);
    db::Database db = db::OpenDatabase(path);
    db.Execute(QString(R"(
        WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)
        INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, SERIAL_NUM, DATE_TXT, TIME_TXT, DT, DEPTH,
            DEPTH_RAW, GAS_UNITS, O2, CO2, ATTEN, TEMP, MIN_FT, FT_HR, LPH, SAMPLEVAC, VOLTS,
            LOWGUV, HIGHGUV, CGTESTNUM, CGV, H2SV, H2S, ERR_TXT, EXT_AMPS, CHROM_VAC, C1, C2, C3,
            IC4, NC4, IC5, NC5, LAG_GU, DATA1, BIT_DEPTH, TOTAL_SPM, TOTAL_STROKES, INCLINATION,
            AZIMUTH, GAMMA_LAG, GAMMA, KW7001, KW7003, KW7005, KW7007)
        SELECT i, i, 'KW1042', strftime('%m/%d/%Y', t), strftime('%H:%M:%S', t),
            strftime('%Y-%m-%d %H:%M:%S', t), 4500 + i / 150.0, 4500 + i / 150.0,
            20 + (i * 7919 % 1000) / 10.0, 20.8, 0.11, 1.0,
            CASE i % 2 WHEN 0 THEN 38.6 ELSE 10031.6 END, 2.5, 24.0, 60.0,
            CASE i % 2 WHEN 0 THEN 5.53 ELSE 10001.1 END,
            CASE i % 2 WHEN 0 THEN 13.75 ELSE 10116.7 END, 0.203, 0.051, i / 100, i % 100 / 7.0,
            0.4, 0.0, CASE WHEN i % 97 = 0 THEN '12 ' ELSE '0 ' END, 2.56,
            CASE i % 2 WHEN 0 THEN 9.91 ELSE 10060.0 END, 11.8, 0.79, 0.33, 0.08, 0.09, 0.01,
            0.01, 4480 + i / 150.0, 2.5, 4500 + i / 150.0, 95.0, i * 9.0, 2.74, 135.85,
            4480 + i / 150.0, 130 + i % 20, 0.0, 0.0, 0.0, 480.4
        FROM (SELECT i, datetime('2026-11-01 06:00:00', '+' || (i * 6) || ' seconds') AS t FROM n)
    )")
                   .arg(kRows));
    db.Close();
}

// The base job, ID in packet order; made when it is missing.
const QString& BaseJob() {
    static const QString path = [] {
        const QString p = BenchFolder() + "/job-1m.db";
        if (Count(p) != kRows) Generate(p);
        return p;
    }();
    return path;
}

void SaveKWDataRows(benchmark::State& state) {
    QTemporaryDir dir;
    Workstation ws(dir.path());
    const QString job = dir.path() + "/live.db";
    db::MakeBlankJob(job, db::kRecordTable);
    ws.fm_Gas_Chart.txt_db_path.setText(job);
    auto& f = ws.packet.Gombri_data_array;
    for (int i = 0; i < 40; ++i) f[i] = QString::number(i) + ".5";
    f[acq::SERIALNUM] = "KW1042";
    f[acq::ERRTXT] = "0 ";
    ws.wits.Gwits_values[8] = 95;
    const QDateTime start(QDate(2026, 11, 1), QTime(6, 0, 0));
    long n = 0;
    for (auto _ : state) {
        ++n;
        const QDateTime t = start.addSecs(6 * n);
        f[acq::DATE] = t.toString("MM/dd/yyyy");
        f[acq::OMBRITIME] = t.toString("HH:mm:ss");
        f[acq::PACKETNUM] = QString::number(n);
        store::SaveKWData(ws);
    }
    if (ws.db.Gdb_error) state.SkipWithError("a row failed");
    state.SetItemsProcessed(state.iterations());
}

void Verify(benchmark::State& state) {
    const bool shuffled = state.range(0) != 0;
    QString job = BaseJob();
    if (shuffled) {
        job = BenchFolder() + "/job-1m-shuffled.db";
        db::CopyDatabase(BaseJob(), job);
    }
    QTemporaryDir dir;
    Workstation ws(dir.path());
    for (auto _ : state) {
        if (shuffled) {
            state.PauseTiming();
            db::Database db = db::OpenDatabase(job);
            db.Execute("UPDATE OMBRI_DB_010 SET ID = -ID");
            db.Close();
            state.ResumeTiming();
        }
        QString path = job;
        store::VerifyDatabase(ws, path);
        if (ws.db.NextRecordId != kRows + 1) state.SkipWithError("re-index incomplete");
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

void RecordsetScan(benchmark::State& state) {
    db::Database db = db::OpenDatabase(BaseJob());
    for (auto _ : state) {
        db::Recordset rs = db.OpenRecordset(db::RecordQuery(db::kRecordTable));
        double sum = 0;
        long rows = 0;
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
            sum += rs.Fields("DEPTH").toDouble() + rs.Fields("GAS_UNITS").toDouble() +
                   rs.Fields("TOTAL_STROKES").toDouble();
            benchmark::DoNotOptimize(rs.Fields("DT"));
            benchmark::DoNotOptimize(rs.Fields("ERR_TXT"));
            ++rows;
        }
        benchmark::DoNotOptimize(sum);
        if (rows != kRows) state.SkipWithError("short scan");
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

void ShellScan(benchmark::State& state) {
    const QString job = BaseJob();
    for (auto _ : state) {
        QProcess shell;
        shell.setStandardOutputFile(QProcess::nullDevice());
        const auto t0 = std::chrono::steady_clock::now();
        shell.start("sqlite3",
                    {job, "SELECT " + kColumns + " FROM OMBRI_DB_010 ORDER BY PACKET_NUM"});
        if (!shell.waitForFinished(600000) || shell.exitCode() != 0) {
            state.SkipWithError("the SQLite shell failed");
            break;
        }
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

} // namespace

// Wall-clock time throughout: the writer and the re-index wait on the disk.
BENCHMARK(SaveKWDataRows)->Unit(benchmark::kMicrosecond)->MinTime(3)->UseRealTime();
BENCHMARK(Verify)
    ->Arg(0)
    ->Arg(1)
    ->ArgName("shuffled")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->UseRealTime();
BENCHMARK(RecordsetScan)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(ShellScan)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    BaseJob();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
