#pragma once
// A workstation over a temporary program folder with a job file of its own,
// drawing on a recording canvas. Records go into the file through plain
// SQLite, as another program would put them there, a packet every six
// seconds unless a record says otherwise.

#include "chart/chart.h"
#include "db/schema.h"
#include "program_folder.h"
#include "raw_db.h"
#include "scripted_dialogs.h"
#include "store/lifecycle.h"
#include "workstation/recording_canvas.h"
#include "workstation/workstation.h"

#include <QDateTime>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sqlite3.h>

namespace charttest {

// One record, as many columns as a case cares for; the rest take these.
struct Rec {
    QDateTime at;
    std::map<QString, QVariant> cols;
    Rec& set(const QString& col, const QVariant& v) { return cols[col] = v, *this; }
};

class ChartTest : public ::testing::Test {
  protected:
    testkit::ProgramFolder folder;
    testkit::ScriptedDialogs dialogs;
    testkit::WiredWorkstation ws{folder.path(), &dialogs};
    QString path = folder.file("JOB.db");
    std::shared_ptr<station::RecordingCanvas> canvas =
        std::make_shared<station::RecordingCanvas>(12000, 9000);
    QDateTime clock{QDate(2026, 11, 2), QTime(6, 0, 0)};
    long packet = 1;

    ChartTest() {
        db::MakeBlankJob(path, db::kRecordTable);
        ws.fm_Gas_Chart.txt_db_path.setText(path);
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
            std::map<QString, QVariant> c = {
                {"ID", QVariant::fromValue(packet)},
                {"PACKET_NUM", QVariant::fromValue(packet)},
                {"SERIAL_NUM", "KW1042"},
                {"DATE_TXT", r.at.date().toString("MM/dd/yyyy")},
                {"TIME_TXT", r.at.time().toString("HH:mm:ss")},
                {"DT", r.at.toString("yyyy-MM-dd HH:mm:ss")},
                {"DEPTH", 1000.0},
                {"DEPTH_RAW", 1000.0},
                {"GAS_UNITS", 10.0},
                {"C1", 1.0},
                {"C2", 0.0},
                {"C3", 0.0},
                {"IC4", 0.0},
                {"NC4", 0.0},
                {"CGTESTNUM", 1.0},
                {"ERR_TXT", "0"},
                {"TOTAL_SPM", 100.0},
                {"BIT_DEPTH", 1000.0},
                {"H2S", 0.0},
                {"O2", 20.9},
                {"CO2", 0.5},
                {"EXT_AMPS", 1.0},
                {"VOLTS", 13.5},
                {"CHROM_VAC", 500.0},
                {"TEMP", 40.0},
                {"SAMPLEVAC", 50.0},
                {"LPH", 60.0},
                {"CGV", 0.0},
            };
            ++packet;
            for (const auto& [k, v] : r.cols) c[k] = v;
            QStringList names, marks;
            for (const auto& kv : c) {
                names << kv.first;
                marks << "?";
            }
            sqlite3_stmt* st = nullptr;
            const QByteArray sql = ("INSERT INTO OMBRI_DB_010 (" + names.join(',') + ") VALUES (" +
                                    marks.join(',') + ")")
                                       .toUtf8();
            sqlite3_prepare_v2(raw.handle(), sql.constData(), -1, &st, nullptr);
            int n = 1;
            for (const auto& kv : c) {
                const QVariant& v = kv.second;
                if (v.isNull())
                    sqlite3_bind_null(st, n);
                else if (v.typeId() == QMetaType::QString)
                    sqlite3_bind_text(st, n, v.toString().toUtf8().constData(), -1,
                                      SQLITE_TRANSIENT);
                else if (v.typeId() == QMetaType::Double)
                    sqlite3_bind_double(st, n, v.toDouble());
                else
                    sqlite3_bind_int64(st, n, v.toLongLong());
                ++n;
            }
            EXPECT_EQ(sqlite3_step(st), SQLITE_DONE);
            sqlite3_finalize(st);
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
