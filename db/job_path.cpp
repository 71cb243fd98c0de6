#include "db/job_path.h"

#include <QFileInfo>

namespace db {

QString JobPath(const QString& path) {
    if (!path.endsWith(QStringLiteral(".mdb"), Qt::CaseInsensitive)) return path;
    if (QFileInfo(path).isFile()) return path;
    // ".MDB" -> ".DB", ".mdb" -> ".db": the letters keep their case.
    QString job = path;
    job.remove(job.size() - 3, 1);
    return job;
}

} // namespace db
