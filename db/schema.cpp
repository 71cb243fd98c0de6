#include "db/schema.h"

#include "db/recordset.h"

namespace db {

QString RecordQuery(const QString& table) {
    return " SELECT * FROM " + table + " ORDER BY PACKET_NUM";
}

void CreateRecordTable(const Database& db, const QString& table) {
    TableDef def{table, {}};
    for (const ColumnDef& c : kRecordColumns) def.CreateField(c.name, c.type);
    db.Append(def);
    db.Execute("CREATE UNIQUE INDEX \"" + table + "_PACKET_NUM\" ON \"" + table +
               "\" (PACKET_NUM)");
    AddIdIndex(db, table);
}

void AddIdIndex(const Database& db, const QString& table) {
    db.Execute("CREATE INDEX IF NOT EXISTS \"" + table + "_ID\" ON \"" + table + "\" (ID)");
}

void CreateLagParaTable(const Database& db) {
    TableDef def{kLagTable, {}};
    for (const ColumnDef& c : kLagColumns) def.CreateField(c.name, c.type);
    db.Append(def);
    Recordset rs = db.OpenRecordset(kLagQuery, RecordsetType::AppendOnly);
    Transaction t(db);
    for (int zone = 1; zone <= 6; ++zone) {
        rs.AddNew();
        rs.SetField("ZoneNumber", zone);
        rs.SetField("StartDepth", zone == 1 ? 1 : 0);
        rs.SetField("EndDepth", zone == 1 ? 30000 : 0);
        rs.SetField("StrPer100Ft", 110);
        rs.SetField("MinPer100Ft", 0.6);
        rs.SetField("Selection", 1);
        rs.Update();
    }
    t.Commit();
}

void MakeBlankJob(const QString& path, const QString& table) {
    Database db = OpenDatabase(path, OpenMode::Create);
    CreateRecordTable(db, table);
    CreateLagParaTable(db);
    db.Close();
}

} // namespace db
