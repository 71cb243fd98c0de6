#include "db/file_id.h"

#include <QFile>
#include <sys/stat.h>

namespace db {

uint64_t FileId(const QString& path) {
    struct stat st {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &st) != 0) return 0;
    return (static_cast<uint64_t>(st.st_dev) << 40) ^ static_cast<uint64_t>(st.st_ino);
}

bool SameFile(const QString& a, const QString& b) {
    const uint64_t id = FileId(a);
    return id != 0 && id == FileId(b);
}

} // namespace db
