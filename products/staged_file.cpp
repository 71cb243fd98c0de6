#include "products/staged_file.h"

#include <QDir>
#include <QFileInfo>

namespace products {

QString FileFailure(const QString& path) {
    const QFileInfo f(path);
    const QFileInfo dir(f.absolutePath());
    if (!dir.exists() || !dir.isDir()) return "Path not found: " + path;
    if (!dir.isWritable() || (f.exists() && !f.isWritable())) return "Permission denied: " + path;
    return "Path/File access error: " + path;
}

StagedFile::StagedFile(const QString& path) : path_(path), file_(path) {
    if (!file_.open(QIODevice::WriteOnly)) throw FileError(FileFailure(path));
    buf_.reserve(kSpill + 4096);
}

void StagedFile::flush() {
    if (buf_.isEmpty()) return;
    if (file_.write(buf_) != buf_.size()) {
        const QString why = file_.errorString();
        file_.cancelWriting();
        throw FileError("Disk full or write error: " + path_ + " (" + why + ")");
    }
    buf_.clear();
}

void StagedFile::finish() {
    flush();
    if (!file_.commit()) throw FileError(FileFailure(path_));
}

} // namespace products
