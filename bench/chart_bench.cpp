// A whole redraw of the gas chart (strip chart and ROP graph) on the job of a
// million records, on an image the size of a full-height screen canvas: at
// the newest record, in the middle of the job and near record 1000, with the
// usual curves and with every curve ticked. Beside it the floor: the sqlite3
// tool reading the same rows and columns. Then the longest wait of the event
// loop (a 10 ms timer) while a redraw at zoom 0.25 runs, and the peak
// resident size of the process.
#include "big_job.h"
#include "chart/chart.h"
#include "store/lifecycle.h"
#include "workstation/image_canvas.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace {

// The shared job drills on past the deepest foot the chart takes (49990):
// its copy here has the deeper half brought back up by 45000 ft, so that
// the newest records draw.
const QString& ChartJob() {
    static const QString path = [] {
        const QString p = QFileInfo(bigjob::Job()).path() + "/JOB_1M_chart.db";
        if (bigjob::CountRecords(p) != bigjob::kRecords) {
            QFile::remove(p);
            QFile::copy(bigjob::Job(), p);
            db::Database d = db::OpenDatabase(p);
            d.Execute("UPDATE OMBRI_DB_010 SET DEPTH = DEPTH - 45000, DEPTH_RAW = DEPTH_RAW - "
                      "45000, BIT_DEPTH = BIT_DEPTH - 45000 WHERE DEPTH > 49990");
        }
        return p;
    }();
    return path;
}

enum Where { Newest, Middle, Near1000 };
enum Curves { Usual, Every };

struct Station {
    QTemporaryDir dir;
    Workstation ws{dir.path()};
    explicit Station(Curves curves) {
        ws.fm_Gas_Chart.txt_db_path.setText(ChartJob());
        ws.loop.Gstarting_up = false;
        ws.chart.graph = std::make_shared<station::ImageCanvas>(1500, 1000, 11900);
        auto& s = ws.fm_setup;
        for (auto* box : {&s.ch_show_gu, &s.ck_rop, &s.ck_auto_lag, &s.ck_c_values, &s.ch_show_peak,
                          &s.ck_edited_geo, &s.ck_off_bottom, &s.ck_pumps_on, &s.ck_c1, &s.ck_c2,
                          &s.ck_c3, &s.ck_ic4, &s.ck_nc4})
            box->setChecked(true);
        for (auto* box :
             {&s.txt_c1_gain, &s.txt_c2_gain, &s.txt_c3_gain, &s.txt_ic4_gain, &s.txt_nc4_gain})
            box->setText("1.00");
        s.txt_cg_gain.setText("5000");
        if (curves == Every) {
            for (auto* box :
                 {&s.ch_show_chromatograph, &s.ch_show_h2s, &s.ch_co2, &s.ch_o2, &s.ch_raw_depth,
                  &s.ck_gamma, &s.ck_wits, &s.ch_show_bd, &s.ck_line_lag, &s.ck_show_ins_pac,
                  &s.ck_dc_volts, &s.ck_ac_volts, &s.ck_ext_amps, &s.ck_hrm_temp, &s.ck_cg_prs,
                  &s.ck_cg_temp, &s.ck_exh_prs, &s.ck_temp, &s.ck_vac_flow})
                box->setChecked(true);
            for (auto& box : s.ck_Show_Custom_Wits) box.setChecked(true);
            s.op1_oil_ind.setValue(1);
        }
        store::PrimeLastRecord(ws);
        ws.chart.Gchart_busy = false;
    }
    void placeAt(Where where) {
        auto& c = ws.chart;
        c.ChartTopRecord = where == Newest   ? c.LastRecord
                           : where == Middle ? c.LastRecord / 2
                                             : 1000;
    }
};

void CheckDrawn(benchmark::State& state, Workstation& ws) {
    if (ws.db.Gdb_error || ws.chart.RowsDrawn < 100) {
        std::fprintf(stderr, "%s\n", qPrintable(ws.fm_Gas_Chart.txt_message.text()));
        state.SkipWithError("the draw failed");
    }
}

void Redraw(benchmark::State& state) {
    Station s(static_cast<Curves>(state.range(1)));
    s.placeAt(static_cast<Where>(state.range(0)));
    for (auto _ : state) chart::make_chart(s.ws);
    CheckDrawn(state, s.ws);
    state.counters["rows"] = s.ws.chart.RowsDrawn;
    state.counters["records_from"] = s.ws.chart.ChartTopRecord;
}

// CPU seconds of the finished child processes so far: on a shared machine
// the tool's own CPU time is a steadier floor than its wall time.
double ChildCpuSeconds() {
    rusage u{};
    getrusage(RUSAGE_CHILDREN, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) +
           double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// The tool reads what one redraw reads: the rows from the top of the page
// back as far as the draw went, the columns of the ticked curves.
void Floor(benchmark::State& state) {
    Station s(static_cast<Curves>(state.range(1)));
    s.placeAt(static_cast<Where>(state.range(0)));
    chart::make_chart(s.ws);
    const bool every = state.range(1) == Every;
    const QString columns =
        every ? "ID, DT, TIME_TXT, DATE_TXT, ERR_TXT, DEPTH, DEPTH_RAW, BIT_DEPTH, GAS_UNITS, H2S, "
                "EXT_AMPS, VOLTS, CHROM_VAC, TEMP, SAMPLEVAC, LPH, TOTAL_SPM, O2, CO2, "
                "CGTESTNUM, CGV, C1, C2, C3, IC4, NC4, IC5, NC5, GAS_TEXT, GAMMA, KW7001, "
                "KW7003, KW7005, KW7007"
              : "ID, DT, TIME_TXT, DATE_TXT, DEPTH, BIT_DEPTH, GAS_UNITS, TOTAL_SPM, CGTESTNUM, "
                "CGV, C1, C2, C3, IC4, NC4, IC5, NC5, GAS_TEXT";
    const QString sql = QString("SELECT %1 FROM OMBRI_DB_010 ORDER BY PACKET_NUM DESC "
                                "LIMIT %2 OFFSET %3;")
                            .arg(columns)
                            .arg(s.ws.chart.RowsDrawn)
                            .arg(s.ws.chart.LastRecord + 1 - s.ws.chart.ChartTopRecord);
    const double cpu = ChildCpuSeconds();
    for (auto _ : state) {
        QProcess p;
        p.setStandardOutputFile(QProcess::nullDevice());
        p.start("sqlite3", {"-batch", ChartJob(), sql});
        if (!p.waitForFinished(-1) || p.exitCode() != 0)
            state.SkipWithError("the sqlite3 tool failed");
    }
    state.counters["tool_cpu_ms"] = (ChildCpuSeconds() - cpu) * 1000 / double(state.iterations());
}

// The event loop keeps running through a long draw: the longest gap between
// two ticks of a 10 ms timer while a redraw at zoom 0.25 (a day on the
// screen) runs on a full-height canvas.
void LoopDuringRedraw(benchmark::State& state) {
    Station s(Every);
    s.placeAt(Newest);
    s.ws.settings.Zoom = 0.25;
    s.ws.chart.graph = std::make_shared<station::ImageCanvas>(1900, 1400, 11900);
    double worst = 0;
    for (auto _ : state)
        worst = std::max(worst, bigjob::LongestLoopGap([&] { chart::make_chart(s.ws); }));
    CheckDrawn(state, s.ws);
    state.counters["longest_gap_ms"] = worst;
    state.counters["rows"] = s.ws.chart.RowsDrawn;
}

void PeakResident(benchmark::State& state) {
    Station s(Every);
    s.placeAt(Newest);
    for (auto _ : state) chart::make_chart(s.ws);
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    state.counters["peak_rss_mb"] = double(u.ru_maxrss) / 1024;
}

void Cases(benchmark::internal::Benchmark* b) {
    for (int where : {Newest, Middle, Near1000})
        for (int curves : {Usual, Every}) b->Args({where, curves});
    b->ArgNames({"where", "every"});
}

} // namespace

BENCHMARK(Redraw)
    ->Apply(Cases)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->Iterations(1)
    ->ReportAggregatesOnly(true);
BENCHMARK(Floor)->Apply(Cases)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(LoopDuringRedraw)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(PeakResident)->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char** argv) {
    // Fonts for the image need the GUI side of Qt, without a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    return bigjob::RunOverTheJob(argc, argv, [] { ChartJob(); });
}
