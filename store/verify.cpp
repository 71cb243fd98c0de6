// The checks of every open: the file is there, of the current generation,
// has the late columns, and ID runs 1, 2, 3 ... in packet order.
#include "db/job_error.h"
#include "db/schema.h"
#include "store/lifecycle.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QFile>

#include <memory>

namespace store {

namespace {

// Steps 3: the upgrade path of every open, errors ignored (a column that is
// there already is the usual case). A file made by another tool may lack the
// unique index on PACKET_NUM; it gets it unless its packet numbers repeat.
// An older job gets the index on ID.
void AddLateColumns(Workstation& ws, const QString& path) {
    const QString table = ws.db.Gtable_name;
    try {
        db::Database db = ws.db.Gworkspace.OpenDatabase(path);
        for (const char* column : db::kLateColumns) {
            try {
                db.AppendField(table, {column, db::DataType::Double});
            } catch (const db::DbError&) {
            }
        }
        try {
            db.Execute("CREATE UNIQUE INDEX IF NOT EXISTS \"" + table + "_PACKET_NUM\" ON \"" +
                       table + "\" (PACKET_NUM)");
        } catch (const db::DbError&) {
        }
        try {
            db::AddIdIndex(db, table);
        } catch (const db::DbError&) {
        }
        db.Close();
    } catch (const db::DbError&) {
    }
}

// Steps 5 to 8. A row whose ID is already right is not written again: the
// outcome is the same and an ordered job costs one read.
void Reindex(Workstation& ws, db::Database& db, db::Recordset& rs) {
    auto& st = ws.db;
    auto& help = ws.fm_help;
    st.NextRecordId = 1;
    if (rs.RecordCount() == 0) return;
    rs.MoveFirst();
    rs.MoveLast();
    const int32_t count = rs.RecordCount();
    rs.MoveFirst();
    if (count > 1) {
        station::help_msg(ws, "");
        help.form.setCaption("Re-indexing Data Base.  Wait...");
        help.pgbar.setRange(1, count + 1);
        help.pgbar.setValue(1);
        help.form.setVisible(true);
    }
    station::DoEvents(ws);
    // The first commit comes after ten rows so the display moves at once,
    // then every thousand.
    auto batch = std::make_unique<db::Transaction>(db);
    int countdown = 10;
    for (; !rs.Eof(); rs.MoveNext()) {
        if (--countdown == 0) {
            // The loop runs between two batches, never inside one: the live
            // writer goes on adding rows while a long job re-indexes.
            batch->Commit();
            countdown = 1000;
            station::DoEvents(ws);
            help.pgbar.setValue(st.NextRecordId);
            batch = std::make_unique<db::Transaction>(db);
        }
        const db::Variant id = rs.Fields("ID");
        if (id.isNull() || id.kind() != db::Variant::Kind::Long ||
            id.toInt64() != st.NextRecordId) {
            rs.Edit();
            rs.SetField("ID", st.NextRecordId);
            rs.Update();
        }
        st.NextRecordId += 1;
    }
    help.form.setVisible(false);
    batch->Commit();
}

} // namespace

void VerifyDatabase(Workstation& ws, QString& path) {
    auto& st = ws.db;
    if (!st.Gworkspace.isOpen()) st.Gworkspace = db::Workspace::Create("Gworkspace");

    // 1.
    if (!QFile::exists(path)) {
        station::disply_text_alarms(ws, path + " File not found");
        MakeDatabase(ws, path);
        return;
    }

    // 2. Current when the record table opens in packet order.
    try {
        db::Database db = st.Gworkspace.OpenDatabase(path);
        // The columns, and the sort, without reading the keyset.
        db.OpenRecordset(db::RecordQuery(ws.db.Gtable_name), db::RecordsetType::AppendOnly).Close();
        db.OpenRecordset(" SELECT * FROM " + ws.db.Gtable_name + " WHERE 0 ORDER BY PACKET_NUM")
            .Close();
        db.Close();
    } catch (const db::DbError&) {
        // Whatever the failure (an older table, a damaged or locked file, no
        // data base at all), the user is asked; the conversion only reads
        // the file, and says so when it can't.
        if (ws.dialogs().MsgBox("This data base is not compatible with the new version"
                                "\r\nWould you like to convert it?",
                                platform::Buttons::YesNo, "CONVERT DATA BASE TO NEW TYPE?",
                                platform::Icon::Question) != platform::Answer::Yes)
            return;
        if (ConvertDatabase(ws, path) == 0) return;
    }

    // 3.
    AddLateColumns(ws, path);

    // 4.
    db::Database db;
    db::Recordset rs;
    try {
        db = st.Gworkspace.OpenDatabase(path);
        rs = db.OpenRecordset(db::RecordQuery(ws.db.Gtable_name));
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws,
                                    "Unable to open correct data base version: " + db::Describe(e));
        return;
    }

    // 5-8.
    try {
        Reindex(ws, db, rs);
    } catch (const std::exception& e) {
        ws.fm_help.form.setVisible(false);
        ws.db.Gdb_error = true;
        station::disply_text_alarms(ws, db::JobError("Open DB Err: ", e, 5));
    }
    rs.Close();
    db.Close();
}

} // namespace store
