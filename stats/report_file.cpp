#include "stats/report_file.h"

namespace stats {

bool ReportFile::open() {
    return f_.open(QIODevice::WriteOnly);
}

void ReportFile::line(const QString& t) {
    text(t + "\r\n");
}

void ReportFile::lines(const QStringList& texts) {
    for (const QString& t : texts) line(t);
}

void ReportFile::text(const QString& t) {
    // A failed write is kept by the file and fails the commit.
    f_.write(t.toUtf8());
}

bool ReportFile::commit() {
    return f_.commit();
}

} // namespace stats
