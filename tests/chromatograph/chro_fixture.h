#pragma once
// A job of chromatograph runs as the instrument leaves them: each run records
// of one CGTESTNUM, six seconds apart, each carrying the split of the run
// before it.

#include "chromatograph/chromatograph.h"
#include "raw_db.h"
#include "store/lifecycle.h"
#include "test_station.h"
#include "text/numbers.h"
#include "workstation/recording_canvas.h"

#include <QDateTime>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace chrotest {

// A detector sample as the instrument writes it: volts with five decimals,
// then the last peak found and the peak window (both 0 for none).
inline double Cgv(double volts, int found, int window) {
    return text::Val(text::Format(volts, u"0.00000") + QString::number(found) +
                     QString::number(window));
}

struct RunSpec {
    double testNum;
    int records;
    // CGV of record k of the run; a flat 1.1 V when empty.
    std::function<double(int)> cgv = {};
};

// The split every record of run `testNum` reports for the run before it.
inline std::array<double, 7> ReportedGas(double testNum) {
    return {50 + testNum, 5, 3, 1, 1, 0.5, 0};
}

class ChroTest : public ::testing::Test {
  public:
    testkit::Station st{"CHRO.db"};
    Workstation& ws = st.ws;
    std::shared_ptr<station::RecordingCanvas> canvas =
        std::make_shared<station::RecordingCanvas>(9000, 7200);
    QDateTime start{QDate(2026, 11, 2), QTime(6, 0, 0)};
    int written = 0;

    ChroTest() {
        ws.chro.pb_chro = canvas;
        ws.chart.Gchart_busy = false;
        chromatograph::fm_chro_Load(ws);
    }

    // Appends the runs and opens the shared set on the job.
    void write(const std::vector<RunSpec>& runs) {
        testkit::RawDb raw(st.job);
        raw.exec("BEGIN");
        for (const RunSpec& run : runs) {
            QStringList gas;
            for (double g : ReportedGas(run.testNum)) gas << QString::number(g);
            for (int k = 0; k < run.records; ++k) {
                const QDateTime at = start.addSecs(6LL * written++);
                // Pressure and column temperature in turns.
                const double vac = written % 2 ? 760 : 10000 + 61.25;
                const double cgv = run.cgv ? run.cgv(k) : 1.1;
                raw.exec(QString("INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, SERIAL_NUM, DATE_TXT, "
                                 "TIME_TXT, DT, DEPTH, BIT_DEPTH, GAS_UNITS, LAG_GU, CGTESTNUM, "
                                 "CGV, CHROM_VAC, C1, C2, C3, IC4, NC4, IC5, NC5) VALUES (%1, %1, "
                                 "'KW1042', '%2', '%3', '%4', -4500, 0, %5, 4480, %6, %7, %8, %9)")
                             .arg(written)
                             .arg(at.toString("MM/dd/yyyy"), at.toString("HH:mm:ss"),
                                  at.toString("yyyy-MM-dd HH:mm:ss"))
                             .arg(100 + run.testNum)
                             .arg(run.testNum)
                             .arg(cgv, 0, 'g', 17)
                             .arg(vac)
                             .arg(gas.join(", ")));
            }
        }
        raw.exec("COMMIT");
        store::PrimeLastRecord(ws);
    }

    // View CG pressed on a stretch chosen on the chart between two records
    // (by ID).
    void view(int32_t id1, int32_t id2) {
        ws.chart.RowRecordId[1000] = id1;
        ws.chart.RowRecordId[2000] = id2;
        ws.chart.SelectStartY = 1000;
        ws.chart.SelectEndY = 2000;
        chromatograph::cmd_view_cg_Click(ws);
    }

    const chromatograph::CgRun& run() const { return ws.chro.run; }
    // Run 2 (40 records, a whole run) on show, reported by run 3.
    void loadWhole() {
        write({{1, 40}, {2, 40}, {3, 10}, {4, 40}});
        view(5, 20);
    }
    // X of the pointer over sample i.
    double pointerX(int i) const { return 300 + (i + 0.5) * 4100.0 / run().CgCount; }
};

} // namespace chrotest
