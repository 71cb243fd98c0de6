#include "db/database.h"
#include "db/db_error.h"
#include "db/job_error.h"
#include "db/recordset.h"
#include "db/schema.h"
#include "depth/pass_rhythm.h"
#include "products/names.h"
#include "products/omd.h"
#include "products/omd_line.h"
#include "store/lifecycle.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/services.h"
#include "workstation/workstation.h"

#include <QFile>
#include <sqlite3.h>

namespace products {

namespace {

// The text columns go in as they stand; every other one through Val.
bool IsTextColumn(int i) {
    return i == 1 || i == 2 || i == 3 || i == 27 || i == 39;
}

// One prepared INSERT of a record from the working fields.
class RecordInsert {
  public:
    RecordInsert(const db::Database& db, const QString& table) : db_(db) {
        QByteArray sql = "INSERT INTO \"" + table.toUtf8() + "\" (ID, DT";
        QByteArray marks = "?, ?";
        for (const char* c : kOmdColumns) {
            sql += QByteArray(", ") + c;
            marks += ", ?";
        }
        sql += ") VALUES (" + marks + ")";
        const int rc = sqlite3_prepare_v2(db.handle(), sql.constData(), -1, &st_, nullptr);
        if (rc != SQLITE_OK) db::ThrowEngineError(db.handle(), rc, table);
        sqlite3_stmt* max = nullptr;
        const QByteArray q = "SELECT max(ID) FROM \"" + table.toUtf8() + "\"";
        if (sqlite3_prepare_v2(db.handle(), q.constData(), -1, &max, nullptr) == SQLITE_OK &&
            sqlite3_step(max) == SQLITE_ROW)
            nextId_ = sqlite3_column_int64(max, 0) + 1;
        sqlite3_finalize(max);
    }
    ~RecordInsert() { sqlite3_finalize(st_); }
    RecordInsert(const RecordInsert&) = delete;
    RecordInsert& operator=(const RecordInsert&) = delete;

    // Stores the record; 0, or the number of the error that refused it.
    int add(const OmdFields& f) {
        const auto dt = text::ParseDateTime(QString::fromLatin1(f[2] + ' ' + f[3]));
        if (!dt) return db::err::TypeMismatch; // a date the record cannot carry
        sqlite3_reset(st_);
        sqlite3_bind_int64(st_, 1, nextId_);
        const QByteArray iso = text::IsoDateTime(*dt).toLatin1();
        sqlite3_bind_text(st_, 2, iso.constData(), static_cast<int>(iso.size()), SQLITE_TRANSIENT);
        for (int i = 0; i < static_cast<int>(f.size()); ++i) {
            if (IsTextColumn(i))
                sqlite3_bind_text(st_, i + 3, f[i].constData(), static_cast<int>(f[i].size()),
                                  SQLITE_TRANSIENT);
            else
                sqlite3_bind_double(st_, i + 3, text::Val(QString::fromLatin1(f[i])));
        }
        const int rc = sqlite3_step(st_);
        if (rc == SQLITE_DONE) {
            ++nextId_;
            return 0;
        }
        const db::DbError e = db::EngineError(db_.handle(), rc);
        sqlite3_reset(st_);
        return e.number();
    }

  private:
    db::Database db_;
    sqlite3_stmt* st_ = nullptr;
    qint64 nextId_ = 1;
};

QString AskForFile(Workstation& ws) {
    return ws.dialogs().OpenFile("Import TEXT Data File From Where?",
                                 "Ombri Data (*.OMD) | *.omd;*.OMD | All Files (*.*) | *.*",
                                 ws.programDir + "\\DB_CUE\\");
}

} // namespace

ImportCounts Import_OMD_file(Workstation& ws, const QString& file_name) {
    ImportCounts n;
    int pt = 1;
    auto& help = ws.fm_help;
    try {
        QString name = file_name.size() < 3 ? AskForFile(ws) : file_name;
        if (name.isEmpty()) return n;
        pt = 2;
        QFile file(LocalPath(name));
        if (!file.open(QIODevice::ReadOnly))
            throw db::DbError(db::err::FileNotFound, "File not found: " + name);
        const double length = std::max<qint64>(1, file.size());
        pt = 3;
        ws.db.Grecords.Close();
        ws.db.Gdb.Close();
        db::Database db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        long recordCount = 0;
        {
            db::Recordset count = db.OpenRecordset(db::RecordQuery(ws.db.Gtable_name));
            recordCount = count.RecordCount();
        }
        pt = 4;
        help.form.setVisible(true);
        help.lbl_help.setCaption("Adding Entries From File\r\nDon't Touch Any Buttons.");
        help.pgbar.setRange(0, 100);
        help.pgbar.setValue(0);
        station::help_msg(ws, "Loading file into data base...");
        OmdFields fields;
        fields.fill(QByteArrayLiteral(" "));
        const bool forced = ws.fm_Gas_Chart.CK_Import_OMD.checked();

        pt = 5;
        {
            RecordInsert insert(db, ws.db.Gtable_name);
            // Records go in batches, each committed before the loop runs,
            // so the live writer never waits on the import.
            depth::PassRhythm rhythm(ws, db);
            long badInARow = 0;
            double done = 0;
            QList<QByteArray> pending;
            while (!pending.isEmpty() || !file.atEnd()) {
                if (pending.isEmpty()) {
                    QByteArray got = file.readLine();
                    done += static_cast<double>(got.size());
                    if (got.endsWith('\n')) got.chop(1);
                    if (got.endsWith('\r')) got.chop(1);
                    // A lone CR ends a line too (an echo of a command
                    // ahead of the first record).
                    if (got.contains('\r'))
                        pending = got.split('\r');
                    else
                        pending << got;
                }
                const QByteArray line = pending.takeFirst();
                ++n.read;
                ++badInARow;
                if (ReadOmdLine(line, fields, recordCount, forced) == OmdLine::Record)
                    badInARow = 0;
                if (badInARow != 0) {
                    ++n.refused;
                    station::help_msg(ws, "");
                    station::help_msg(ws, "Invalid Record " + QString::number(badInARow));
                } else {
                    rhythm.beginWrite();
                    const int error = insert.add(fields);
                    rhythm.endWrite();
                    if (error == 0) {
                        ++n.added;
                        help.pgbar.setValue(std::min(100, static_cast<int>(done / length * 100)));
                    } else if (error == db::err::DuplicateKey) {
                        // Packets already in the job stay as they are.
                        ++n.skipped;
                    } else {
                        ++n.refused;
                        n.error = error;
                        break;
                    }
                }
                rhythm.yield();
            }
            rhythm.commit();
        }
        pt = 6;
        db.Close();
    } catch (const db::DbError& e) {
        n.error = e.number();
        station::disply_text_alarms(ws, "Import File Err: " + e.description() +
                                            " err point: " + text::Str(pt));
    } catch (...) {
        n.error = db::err::Engine;
        station::disply_text_alarms(ws,
                                    "Import File Err: " + db::ErrorText(std::current_exception()) +
                                        " err point: " + text::Str(pt));
    }
    if (pt >= 3) {
        store::PrimeLastRecord(ws);
        station::make_chart(ws);
        help.pgbar.setValue(help.pgbar.max());
        station::help_msg(ws, n.error == 0 ? QString("The files have been imported")
                                           : "The files have been imported with error  Err No: " +
                                                 QString::number(n.error));
        station::help_msg(ws, QString("Lines read: %1  Added: %2  Skipped: %3  Refused: %4")
                                  .arg(n.read)
                                  .arg(n.added)
                                  .arg(n.skipped)
                                  .arg(n.refused));
    }
    return n;
}

void cmd_import_txt_Click(Workstation& ws) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    Import_OMD_file(ws, "");
}

} // namespace products
