// A new job file: the demonstration job, or a blank one from the template.
#include "db/job_error.h"
#include "db/schema.h"
#include "store/lifecycle.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QFile>
#include <QFileInfo>

namespace store {

namespace {

const QString kTemplate = QStringLiteral("OMBRI_010_BLANK.db");
const QString kBlankName = QStringLiteral("OMBRI_010_BLANK.DB");
const QString kDemoName = QStringLiteral("V11_DEMO.DB");

// A job file copied whole; a file that is no data base is copied as bytes,
// so what stood there is kept whatever it was.
void KeepCopy(const QString& from, const QString& to) {
    try {
        db::CopyDatabase(from, to);
    } catch (const db::DbError&) {
        db::RemoveJobFile(to);
        if (!QFile::copy(from, to))
            throw db::DbError(db::err::DiskError, "Could not copy the file '" + from + "'");
    }
}

} // namespace

QString EnsureTemplate(Workstation& ws) {
    const QString path = ws.programFile(kTemplate);
    if (!QFile::exists(path)) db::MakeBlankJob(path, ws.db.Gtable_name);
    return path;
}

void MakeDatabase(Workstation& ws, QString& path) {
    int pt = 1;
    try {
        // 1. The demonstration job, from the copy the program folder keeps.
        if (path.right(kDemoName.size()).toUpper() == kDemoName) {
            try {
                db::CopyDatabase(ws.programFile(kDemoName), path);
                station::disply_text_alarms(ws, "Created demo DB " + path);
                return;
            } catch (const std::exception& e) {
                station::disply_text_alarms(ws,
                                            "Could not copy " + kDemoName + " " + db::Describe(e));
                station::disply_text_alarms(ws, "Attempting to create blank demo");
            }
        }
        // 2. What stands at the path is kept under "OLD_" and its name.
        pt = 2;
        if (QFile::exists(path)) {
            const QFileInfo at(path);
            KeepCopy(path, at.path() + "/OLD_" + at.fileName());
            db::RemoveJobFile(path);
        }
        // 3.
        pt = 3;
        if (path.right(2).toUpper() != "DB") {
            const QString blank = QFileInfo(path).path() + "/" + kBlankName;
            station::disply_text_alarms(ws, path + " does not end in DB: the new data base is " +
                                                blank);
            path = blank;
        }
        // 4.
        pt = 4;
        db::CopyDatabase(EnsureTemplate(ws), path);
        station::disply_text_alarms(ws, path + " created");
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, db::JobError("New DB Err: ", e, pt));
    }
}

} // namespace store
