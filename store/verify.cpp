// The checks of every open: the file is there, of the current generation,
// has the late columns, and ID runs 1, 2, 3 ... in packet order.
#include "acquisition/events.h"
#include "acquisition/info_box.h"
#include "acquisition/live_fields.h"
#include "acquisition/workstation.h"
#include "store/job_messages.h"
#include "store/lifecycle.h"
#include "store/schema.h"

#include <QFile>

#include <memory>

namespace store {

namespace {

// Failures of the file as such: no conversion can mend them, and the open
// that follows reports them in the system's words.
bool FileItselfFails(int number) {
    switch (number) {
    case err::FileNotFound:
    case err::NotADatabase:
    case err::Locked:
    case err::NoPermission:
    case err::DiskError:
    case err::Damaged:
        return true;
    default:
        return false;
    }
}

// Steps 3: the upgrade path of every open, errors ignored (a column that is
// there already is the usual case). A file made by another tool may lack the
// unique index on PACKET_NUM; it gets it unless its packet numbers repeat.
void AddLateColumns(Workstation& ws, const QString& path) {
    const QString table = ws.rt.Gtable_name;
    try {
        Database db = ws.db.Gworkspace.OpenDatabase(path);
        for (const char* column : kLateColumns) {
            try {
                db.AppendField(table, {column, DataType::Double});
            } catch (const DbError&) {
            }
        }
        try {
            db.Execute("CREATE UNIQUE INDEX IF NOT EXISTS \"" + table + "_PACKET_NUM\" ON \"" +
                       table + "\" (PACKET_NUM)");
        } catch (const DbError&) {
        }
        db.Close();
    } catch (const DbError&) {
    }
}

// Steps 5 to 8. A row whose ID is already right is not written again: the
// outcome is the same and an ordered job costs one read.
void Reindex(Workstation& ws, Database& db, Recordset& rs) {
    auto& st = ws.db;
    auto& help = ws.fm_help;
    st.NextRecordId = 1;
    if (rs.RecordCount() == 0) return;
    rs.MoveFirst();
    rs.MoveLast();
    const int32_t count = rs.RecordCount();
    rs.MoveFirst();
    if (count > 1) {
        acq::help_msg(ws, "");
        help.form.setCaption("Re-indexing Data Base.  Wait...");
        help.pgbar.setRange(1, count + 1);
        help.pgbar.setValue(1);
        help.form.setVisible(true);
    }
    acq::DoEvents(ws);
    // The first commit comes after ten rows so the display moves at once,
    // then every thousand.
    auto batch = std::make_unique<Transaction>(db);
    int countdown = 10;
    for (; !rs.Eof(); rs.MoveNext()) {
        if (--countdown == 0) {
            batch->Commit();
            countdown = 1000;
            batch = std::make_unique<Transaction>(db);
            acq::DoEvents(ws);
            help.pgbar.setValue(st.NextRecordId);
        }
        const Variant id = rs.Fields("ID");
        if (id.isNull() || id.kind() != Variant::Kind::Long || id.toInt64() != st.NextRecordId) {
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
    auto& rt = ws.rt;
    auto& st = ws.db;
    if (!st.Gworkspace.isOpen()) st.Gworkspace = Workspace::Create("Gworkspace");

    // 1.
    if (!QFile::exists(path)) {
        acq::disply_text_alarms(ws, path + " File not found");
        MakeDatabase(ws, path);
        return;
    }

    // 2. Current when the record table opens in packet order.
    try {
        Database db = st.Gworkspace.OpenDatabase(path);
        // The columns, and the sort, without reading the keyset.
        db.OpenRecordset(RecordQuery(rt.Gtable_name), RecordsetType::AppendOnly).Close();
        db.OpenRecordset(" SELECT * FROM " + rt.Gtable_name + " WHERE 0 ORDER BY PACKET_NUM")
            .Close();
        db.Close();
    } catch (const DbError& e) {
        if (FileItselfFails(e.number())) return;
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
    Database db;
    Recordset rs;
    try {
        db = st.Gworkspace.OpenDatabase(path);
        rs = db.OpenRecordset(RecordQuery(rt.Gtable_name));
    } catch (const std::exception& e) {
        acq::disply_text_alarms(ws, "Unable to open correct data base version: " + Describe(e));
        return;
    }

    // 5-8.
    try {
        Reindex(ws, db, rs);
    } catch (const std::exception& e) {
        ws.fm_help.form.setVisible(false);
        rt.Gdb_error = true;
        acq::disply_text_alarms(ws, JobError("Open DB Err: ", e, 5));
    }
    rs.Close();
    db.Close();
}

} // namespace store
