#pragma once
// A workstation over a temporary program folder with a job file of its own,
// and the ways the depth tests fill it: packet by packet through the record
// writer, as the live program does, or in bulk through the store for the
// long jobs.

#include "acquisition/workstation.h"
#include "depth/lag.h"
#include "program_folder.h"
#include "scripted_dialogs.h"
#include "store/record_writer.h"
#include "store/recordset.h"
#include "store/schema.h"

#include <QDateTime>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace depthtest {

// One packet of the instrument, as far as the depth subsystem cares.
struct Packet {
    double depth = 1000;
    double gas = 10;
    double minFt = 1;
    // Strokes per minute from the pumps over WITS; each record adds a tenth.
    double spm = 100;
    // The line lag is not over: the writer marks the record with "*".
    bool badGas = false;
    double o2 = 20.9, co2 = 0.1, h2s = 0;
    std::array<double, 5> gases{0, 0, 0, 0, 0}; // C1 .. NC4

    Packet& rate(double m) {
        minFt = m;
        return *this;
    }
    Packet& pumps(double s) {
        spm = s;
        return *this;
    }
};
inline Packet At(double depth) {
    Packet p;
    p.depth = depth;
    return p;
}

// One record written straight through the store, for the long jobs.
struct Row {
    double depth = 1000;
    std::optional<double> strokes; // TOTAL_STROKES; nullopt leaves it Null
    double minFt = 1;
    bool badGas = false;
    double gas = 10;
    double spm = 100;

    Row& rate(double m) {
        minFt = m;
        return *this;
    }
    Row& count(double s) {
        strokes = s;
        return *this;
    }
};
inline Row RowAt(double depth) {
    Row r;
    r.depth = depth;
    return r;
}

class JobTest : public ::testing::Test {
  protected:
    testkit::ProgramFolder folder;
    testkit::ScriptedDialogs dialogs;
    Workstation ws{folder.path(), &dialogs};
    QString path = folder.file("JOB.db");
    QDateTime clock{QDate(2026, 11, 1), QTime(6, 0, 0)};
    long packet = 1001;

    JobTest() {
        store::MakeBlankJob(path, store::kRecordTable);
        ws.fm_Gas_Chart.txt_db_path.setText(path);
        // The zone look's random interval, fixed so a run repeats itself.
        ws.Rnd = [] { return 0.5; };
        ws.rt.Gstarting_up = false;
    }

    void byStrokes() {
        ws.fm_setup.op_lag_calc_Str.setValue(1);
        ws.fm_setup.op_lag_calc_Time.setValue(0);
        depth::tmr_lag_calc_Timer(ws);
    }
    void byTime() {
        ws.fm_setup.op_lag_calc_Str.setValue(0);
        ws.fm_setup.op_lag_calc_Time.setValue(1);
        depth::tmr_lag_calc_Timer(ws);
    }

    // One packet through the record writer, six seconds after the last.
    void save(const Packet& p) {
        auto& f = ws.rt.Gombri_data_array;
        for (auto& x : f) x = "0";
        f[acq::SERIALNUM] = "KW1042";
        f[acq::DATE] = clock.date().toString("MM/dd/yyyy");
        f[acq::OMBRITIME] = clock.time().toString("HH:mm:ss");
        f[acq::DEPTH] = QString::number(p.depth, 'f', 2);
        f[acq::GASUNITS] = QString::number(p.gas);
        f[acq::MINFT] = QString::number(p.minFt, 'g', 12);
        f[acq::O2] = QString::number(p.o2);
        f[acq::CO2] = QString::number(p.co2);
        f[acq::H2S] = QString::number(p.h2s);
        f[acq::PACKETNUM] = QString::number(packet);
        for (int i = 0; i < 5; ++i) f[acq::C1 + i] = QString::number(p.gases[i]);
        ws.rt.Gwits_values[8] = p.spm;
        ws.rt.Gline_lag_ok = !p.badGas;
        store::SaveKWData(ws);
        clock = clock.addSecs(6);
        ++packet;
    }

    // Records written through the store in one transaction, after those
    // already there.
    void bulk(const std::vector<Row>& rows) {
        store::Database d = db();
        store::Recordset rs = d.OpenRecordset(store::RecordQuery(store::kRecordTable));
        d.BeginTrans();
        for (const Row& r : rows) {
            rs.AddNew();
            rs.SetField("ID", static_cast<long long>(packet));
            rs.SetField("PACKET_NUM", static_cast<long long>(packet));
            rs.SetField("SERIAL_NUM", "KW1042");
            rs.SetField("DT", clock);
            rs.SetField("DEPTH", r.depth);
            rs.SetField("DEPTH_RAW", r.depth);
            rs.SetField("GAS_UNITS", r.gas);
            rs.SetField("MIN_FT", r.minFt);
            rs.SetField("ERR_TXT", r.badGas ? "0 *" : "0");
            rs.SetField("TOTAL_SPM", r.spm);
            if (r.strokes) rs.SetField("TOTAL_STROKES", *r.strokes);
            rs.Update();
            clock = clock.addSecs(6);
            ++packet;
        }
        d.CommitTrans();
    }

    store::Database db() const { return store::OpenDatabase(path); }

    // A column of every record, in packet order.
    std::vector<store::Variant> column(const char* name) const {
        store::Database d = db();
        store::Recordset rs = d.OpenRecordset(store::RecordQuery(store::kRecordTable));
        std::vector<store::Variant> out;
        for (; rs.RecordCount() > 0 && !rs.Eof(); rs.MoveNext()) out.push_back(rs.Fields(name));
        return out;
    }
    void exec(const QString& sql) const { db().Execute(sql); }

    // How many times a message went to the error log.
    int logged(const QString& text) const {
        return static_cast<int>(folder.read("ERR_LOG.TXT").count(text));
    }

    // The lag depth of record i, or nullopt while it has none.
    static std::optional<double> num(const store::Variant& v) {
        if (v.isNull()) return std::nullopt;
        return v.toDouble();
    }
};

} // namespace depthtest
