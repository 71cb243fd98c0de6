// Place holders on the job of a million records with 10,000 gaps of one
// packet, against the floor of the sqlite3 tool adding the same rows with
// one INSERT ... SELECT; and the longest wait of the event loop (a 10 ms
// timer) while the place holders go in. Every run starts from a fresh copy
// of the gapped job, made outside the timing.
#include "big_job.h"
#include "store/range_delete.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int kGaps = 10000;

// Packet numbers moved up by one after every hundred records: the gaps lie
// after the records with ID 49, 149, ... 999,949, well before the newest.
const QString& GappedJob() {
    static const QString path = [] {
        const QString p = QFileInfo(bigjob::Job()).path() + "/JOB_1M_gaps.db";
        if (bigjob::CountRecords(p) != bigjob::kRecords) {
            db::RemoveJobFile(p);
            db::CopyDatabase(bigjob::Job(), p);
            db::Database d = db::OpenDatabase(p);
            // Through the negatives, so no two rows ever share a number.
            d.Execute("UPDATE OMBRI_DB_010 SET PACKET_NUM = -(ID + (ID + 50) / 100)");
            d.Execute("UPDATE OMBRI_DB_010 SET PACKET_NUM = -PACKET_NUM");
        }
        return p;
    }();
    return path;
}

QString Scratch(const QTemporaryDir& dir) {
    const QString p = dir.path() + "/JOB.db";
    db::RemoveJobFile(p);
    db::CopyDatabase(GappedJob(), p);
    return p;
}

int64_t Rows(const QString& path) {
    return db::OpenDatabase(path).OpenRecordset("SELECT ID FROM OMBRI_DB_010").RecordCount();
}

void AddMissingPackets(benchmark::State& state) {
    QTemporaryDir dir;
    Workstation ws(dir.path());
    double worst = 0;
    int64_t added = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString job = Scratch(dir);
        ws.fm_Gas_Chart.txt_db_path.setText(job);
        state.ResumeTiming();

        worst = std::max(worst, bigjob::LongestLoopGap([&] { store::Add_Missing_Packets(ws); }));

        state.PauseTiming();
        added = Rows(job) - bigjob::kRecords;
        state.ResumeTiming();
    }
    if (added != kGaps) state.SkipWithError("the gaps were not all filled");
    state.counters["rows_added"] = double(added);
    state.counters["longest_gap_ms"] = worst;
}

// The same rows by the sqlite3 tool, in one statement on a fresh copy: the
// gaps found by a window over the packet number index, the rows then read
// by row id.
void FloorInsertSelect(benchmark::State& state) {
    QTemporaryDir dir;
    const double cpu = bigjob::ChildCpuSeconds();
    const QString copied = "GAS_UNITS, O2, CO2, TEMP, MIN_FT, FT_HR, LPH, SAMPLEVAC, VOLTS, "
                           "LOWGUV, HIGHGUV, CGTESTNUM, CGV, H2SV, H2S, EXT_AMPS, CHROM_VAC, C1, "
                           "C2, C3, IC4, NC4, IC5, NC5, TOTAL_SPM, BIT_DEPTH, INCLINATION, "
                           "AZIMUTH, GAMMA_LAG, GAMMA, KW7001, KW7003, KW7005, KW7007, ATTEN";
    const QString sql =
        "INSERT INTO OMBRI_DB_010 (PACKET_NUM, ID, SERIAL_NUM, DT, DATE_TXT, TIME_TXT, DEPTH, "
        "DEPTH_RAW, ERR_TXT, TOTAL_STROKES, " +
        copied +
        ") SELECT s.PACKET_NUM + 1, s.ID + 1, s.SERIAL_NUM, datetime(s.DT, '+6 seconds'), "
        "strftime('%Y/%m/%d', s.DT, '+6 seconds'), strftime('%H:%M:%S', s.DT, '+6 seconds'), "
        "s.DEPTH, s.DEPTH, '0 *#', coalesce(s.TOTAL_STROKES, 0) + CAST(coalesce(s.TOTAL_SPM, "
        "0) / 10 AS INTEGER), s." +
        QString(copied).replace(", ", ", s.") +
        " FROM (SELECT rowid AS rid, PACKET_NUM AS p, lead(PACKET_NUM) OVER (ORDER BY "
        "PACKET_NUM) AS next FROM OMBRI_DB_010) g JOIN OMBRI_DB_010 s ON s.rowid = g.rid "
        "WHERE g.next = g.p + 2";
    int64_t added = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString job = Scratch(dir);
        state.ResumeTiming();
        QProcess p;
        p.setStandardOutputFile(QProcess::nullDevice());
        p.start("sqlite3", {"-batch", job, "PRAGMA synchronous = FULL; " + sql});
        if (!p.waitForFinished(-1) || p.exitCode() != 0)
            state.SkipWithError("the sqlite3 tool failed");
        state.PauseTiming();
        added = Rows(job) - bigjob::kRecords;
        state.ResumeTiming();
    }
    if (added != kGaps) state.SkipWithError("the floor did not add the same rows");
    state.counters["tool_cpu_ms"] =
        (bigjob::ChildCpuSeconds() - cpu) * 1000 / double(state.iterations());
}

} // namespace

BENCHMARK(AddMissingPackets)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FloorInsertSelect)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv, [] { GappedJob(); });
}
