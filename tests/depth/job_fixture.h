#pragma once
// The test station with a job file of its own, filled packet by packet
// through the record writer as the live program does, or in bulk by SQL
// for the long jobs.

#include "db/recordset.h"
#include "db/schema.h"
#include "depth/lag.h"
#include "raw_db.h"
#include "store/record_writer.h"
#include "test_station.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace depthtest {

// A packet as far as depth matters. Pumps come over WITS: each record adds
// a tenth of spm to the stroke count. Bad gas: the writer marks it "*".
struct Packet {
    double depth = 1000, gas = 10, minFt = 1, spm = 100;
    bool badGas = false;
    std::array<double, 5> gases{}; // C1 .. NC4
};

class JobTest : public ::testing::Test, protected testkit::Station {
  protected:
    QDateTime clock{QDate(2026, 11, 1), QTime(6, 0, 0)};
    long packet = 1001;

    JobTest() : testkit::Station("JOB.db") {
        // The zone look's random interval, fixed: 100 records (75 by time).
        ws.Rnd = [] { return 0.5; };
    }
    void byStrokes() { method(1); }
    void byTime() { method(0); }
    void method(int strokes) {
        ws.fm_setup.op_lag_calc_Str.setValue(strokes);
        ws.fm_setup.op_lag_calc_Time.setValue(1 - strokes);
        depth::tmr_lag_calc_Timer(ws);
    }
    void wholePass() { depth::RecalculateLag(ws, 0, 0, 0); }
    // A whole-file pass by strokes, zone 1 set to per100 strokes a 100 ft if given.
    void strokesPass(const char* per100 = nullptr) {
        if (per100) ws.fm_setup.txt_str_per_100ft[1].setText(per100);
        byStrokes();
        wholePass();
    }

    // One packet through the record writer, six seconds after the last.
    void save(const Packet& p) {
        auto& f = ws.packet.Gombri_data_array;
        for (auto& x : f) x = "0";
        f[acq::SERIALNUM] = "KW1042";
        f[acq::DATE] = clock.date().toString("MM/dd/yyyy");
        f[acq::OMBRITIME] = clock.time().toString("HH:mm:ss");
        f[acq::DEPTH] = QString::number(p.depth, 'f', 2);
        f[acq::GASUNITS] = QString::number(p.gas);
        f[acq::MINFT] = QString::number(p.minFt, 'g', 12);
        f[acq::PACKETNUM] = QString::number(packet++);
        for (int i = 0; i < 5; ++i) f[acq::C1 + i] = QString::number(p.gases[i]);
        ws.wits.Gwits_values[8] = p.spm;
        ws.depth.Gline_lag_ok = !p.badGas;
        store::SaveKWData(ws);
        clock = clock.addSecs(6);
    }
    // n records straight into the table, six seconds apart, pumps at 100;
    // DEPTH, MIN_FT and TOTAL_STROKES are SQL of the record's index i.
    void bulk(int n, const QString& depth, const QString& minFt, const QString& strokes = "NULL") {
        exec(QString("WITH RECURSIVE s(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM s WHERE i < %1) "
                     "INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, DT, DEPTH, MIN_FT, ERR_TXT, "
                     "TOTAL_SPM, TOTAL_STROKES) SELECT %2 + i, %2 + i, datetime('%3', '+' || "
                     "(6 * i) || ' seconds'), %4, %5, '0', 100, %6 FROM s")
                 .arg(n - 1)
                 .arg(packet)
                 .arg(clock.toString("yyyy-MM-dd HH:mm:ss"))
                 .arg(depth, minFt, strokes));
        packet += n;
        clock = clock.addSecs(6 * n);
    }

    db::Database db() const { return db::OpenDatabase(job); }
    void exec(const QString& sql) const { db().Execute(sql); }
    // A column of every record, in packet order.
    std::vector<db::Variant> column(const char* name) const {
        db::Recordset rs = db().OpenRecordset(db::RecordQuery(db::kRecordTable));
        std::vector<db::Variant> out;
        for (; rs.RecordCount() > 0 && !rs.Eof(); rs.MoveNext()) out.push_back(rs.Fields(name));
        return out;
    }
    static std::optional<double> num(const db::Variant& v) {
        if (v.isNull()) return std::nullopt;
        return v.toDouble();
    }
    // A column's value in record i (from 0).
    std::optional<double> at(const char* name, int i) const { return num(column(name)[i]); }
    // How many records have a lag depth.
    long long lagged() const {
        return testkit::RawDb(job).number("SELECT count(LAG_GU) FROM OMBRI_DB_010");
    }
    // The job's write of one column of one record fails from now on.
    void failUpdateOf(const char* column, long packetNum) {
        exec(QString("CREATE TRIGGER stop_job BEFORE UPDATE OF %1 ON OMBRI_DB_010 "
                     "WHEN OLD.PACKET_NUM = %2 BEGIN SELECT RAISE(ABORT, 'stopped'); END")
                 .arg(column)
                 .arg(packetNum));
    }
    // How many times a message went to the error log.
    int logged(const QString& text) const {
        return static_cast<int>(folder.read("ERR_LOG.TXT").count(text));
    }
};

} // namespace depthtest
