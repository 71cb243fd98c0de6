// The lag zones of the job: table LagPara in the job file, and the six zone
// rows of the setup panel, which are the working copy the lag engine reads.
// Each routine opens its own connection to the file of txt_db_path and
// closes it again, whatever happens.
#include "db/recordset.h"
#include "db/schema.h"
#include "depth/lag.h"
#include "text/numbers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

namespace depth {

namespace {

constexpr int kZones = 6;

// A failure inside one of the routines: the routine's own prefix, the
// description and the step it had reached.
void Report(Workstation& ws, const char* prefix, const QString& what, int step) {
    station::disply_text_alarms(ws, QString::fromLatin1(prefix) + what +
                                        " Err pt: " + QString::number(step));
}

// Runs one routine's body with the handler every one of them has.
template <class Body> void Guarded(Workstation& ws, const char* prefix, Body body) {
    int step = 0;
    db::Database db;
    db::Recordset rs;
    try {
        body(db, rs, step);
    } catch (const db::DbError& e) {
        Report(ws, prefix, e.description(), step);
    } catch (const std::exception& e) {
        Report(ws, prefix, QString::fromUtf8(e.what()), step);
    }
    try {
        rs.Close();
        db.Close();
    } catch (...) {
        // Closing what failed to open has nothing left to report.
    }
}

} // namespace

void CreateLagTable(Workstation& ws) {
    Guarded(ws, "Create Lag Table Err: ", [&](db::Database& db, db::Recordset&, int& step) {
        step = 1;
        db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        step = 2;
        try {
            db::CreateLagParaTable(db);
        } catch (const db::DbError& e) {
            // Every file after its first opening has the table: its
            // rows are the job's and stay as they are.
            if (e.number() != db::err::TableExists) throw;
        }
        step = 3;
    });
}

void ReadLagTable(Workstation& ws) {
    Guarded(ws, "Read Lag Table Err: ", [&](db::Database& db, db::Recordset& rs, int& step) {
        auto& p = ws.fm_setup;
        step = 1;
        db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text(), db::OpenMode::ReadOnly);
        step = 2;
        rs = db.OpenRecordset(db::kLagQuery);
        step = 3;
        if (rs.RecordCount() == 0) return;
        rs.MoveFirst();
        for (int row = 0; row < kZones && !rs.Eof(); ++row) {
            step = 10 + row;
            const int i = rs.Fields("ZoneNumber").toLong();
            if (i < 1 || i > kZones)
                throw std::runtime_error("Control array element '" + std::to_string(i) +
                                         "' doesn't exist");
            p.txt_Lag_Start_Depth[i].setText(rs.Fields("StartDepth").toText());
            p.txt_Lag_End_Depth[i].setText(rs.Fields("EndDepth").toText());
            p.txt_str_per_100ft[i].setText(rs.Fields("StrPer100Ft").toText());
            p.txt_lag_min[i].setText(rs.Fields("MinPer100Ft").toText());
            // The last row read decides the method.
            const bool byTime = rs.Fields("Selection").valueOr(0) != 0;
            p.op_lag_calc_Time.setValue(byTime ? 1 : 0);
            p.op_lag_calc_Str.setValue(byTime ? 0 : 1);
            rs.MoveNext();
        }
    });
    // The passes read the factors, not the rows: they follow at once.
    depth::RefreshZoneFactors(ws);
}

void WriteLagTable(Workstation& ws) {
    Guarded(ws, "Write Lag Table Err: ", [&](db::Database& db, db::Recordset& rs, int& step) {
        const auto& p = ws.fm_setup;
        step = 1;
        db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        step = 2;
        rs = db.OpenRecordset(db::kLagQuery);
        step = 3;
        if (rs.RecordCount() == 0) return;
        db::Transaction t(db);
        rs.MoveFirst();
        const int selection = p.op_lag_calc_Time.checked() ? 1 : 0;
        for (int i = 1; i <= kZones && !rs.Eof(); ++i) {
            step = 10 + i;
            rs.Edit();
            rs.SetField("ZoneNumber", i);
            rs.SetField("StartDepth", text::Val(p.txt_Lag_Start_Depth[i].text()));
            rs.SetField("EndDepth", text::Val(p.txt_Lag_End_Depth[i].text()));
            rs.SetField("StrPer100Ft", text::Val(p.txt_str_per_100ft[i].text()));
            rs.SetField("MinPer100Ft", text::Val(p.txt_lag_min[i].text()));
            rs.SetField("Selection", selection);
            rs.Update();
            rs.MoveNext();
        }
        step = 20;
        t.Commit();
    });
}

} // namespace depth
