#pragma once
// A workstation with a job file of its own, drawing on a recording canvas.
// Records go in through plain SQLite, six seconds apart unless told.

#include "chart/chart.h"
#include "db/schema.h"
#include "raw_db.h"
#include "store/lifecycle.h"
#include "test_station.h"
#include "workstation/recording_canvas.h"
#include "workstation/workstation.h"

#include <QDateTime>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace charttest {

// One record, as many columns as a case cares for; the rest take these.
struct Rec {
    QDateTime at;
    std::map<QString, QVariant> cols;
    Rec& set(const QString& col, const QVariant& v) { return cols[col] = v, *this; }
};

class ChartTest : public ::testing::Test, protected testkit::Station {
  protected:
    QString path = job;
    std::shared_ptr<station::RecordingCanvas> canvas =
        std::make_shared<station::RecordingCanvas>(12000, 9000);
    QDateTime clock{QDate(2026, 11, 2), QTime(6, 0, 0)};
    long packet = 1;

    ChartTest() : Station("JOB.db") {
        ws.chart.graph = canvas;
        ws.loop.Gstarting_up = false;
        ws.chart.Gchart_busy = false;
        ws.fm_setup.ch_show_gu.setChecked(true);
        ws.fm_setup.ck_rop.setChecked(true);
        for (auto* box :
             {&ws.fm_setup.txt_c1_gain, &ws.fm_setup.txt_c2_gain, &ws.fm_setup.txt_c3_gain,
              &ws.fm_setup.txt_ic4_gain, &ws.fm_setup.txt_nc4_gain})
            box->setText("1.00");
        ws.fm_setup.txt_cg_gain.setText("5000");
    }

    // A record at the clock, which then moves on by `seconds`.
    Rec next(int seconds = 6) {
        Rec r;
        r.at = clock;
        clock = clock.addSecs(seconds);
        return r;
    }

    // Writes the records in one transaction, in packet order.
    void add(const std::vector<Rec>& recs) {
        testkit::RawDb raw(path);
        raw.exec("BEGIN");
        for (const Rec& r : recs) {
            const long n = packet++;
            raw.exec(QString("INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, DATE_TXT, TIME_TXT, DT, "
                             "SERIAL_NUM, DEPTH, DEPTH_RAW, GAS_UNITS, C1, C2, C3, IC4, NC4, "
                             "CGTESTNUM, ERR_TXT, TOTAL_SPM, BIT_DEPTH, H2S, O2, CO2, EXT_AMPS, "
                             "VOLTS, CHROM_VAC, TEMP, SAMPLEVAC, LPH, CGV) VALUES (%1, %1, '%2', "
                             "'%3', '%4', 'KW1042', 1000.0, 1000.0, 10.0, 1.0, 0.0, 0.0, 0.0, 0.0, "
                             "1.0, '0', 100.0, 1000.0, 0.0, 20.9, 0.5, 1.0, 13.5, 500.0, 40.0, "
                             "50.0, 60.0, 0.0)")
                         .arg(n)
                         .arg(r.at.date().toString("MM/dd/yyyy"), r.at.time().toString("HH:mm:ss"),
                              r.at.toString("yyyy-MM-dd HH:mm:ss")));
            QStringList sets;
            for (const auto& [col, v] : r.cols)
                sets << col + " = " +
                            (v.typeId() == QMetaType::QString
                                 ? "'" + v.toString() + "'"
                                 : QString::number(v.toDouble(), 'g', 17));
            if (!sets.isEmpty())
                raw.exec("UPDATE OMBRI_DB_010 SET " + sets.join(',') +
                         " WHERE PACKET_NUM = " + QString::number(n));
        }
        raw.exec("COMMIT");
    }

    // `count` records from the clock on, each shaped by `shape` (index from
    // the first).
    void run(int count, const std::function<void(Rec&, int)>& shape = {}, int seconds = 6) {
        std::vector<Rec> recs;
        for (int k = 0; k < count; ++k) {
            Rec r = next(seconds);
            if (shape) shape(r, k);
            recs.push_back(r);
        }
        add(recs);
    }

    // The shared set opened on the job, the chart's marks at the newest.
    void open() { store::PrimeLastRecord(ws); }
    void draw() { chart::make_chart(ws); }
    // Reads one block from a position.
    void readFrom(int32_t position) {
        ws.chart.HourPointer = position;
        chart::Read_hour_block_from_db(ws);
    }
    QString messages() const { return ws.fm_Gas_Chart.txt_message.text(); }
};

} // namespace charttest
