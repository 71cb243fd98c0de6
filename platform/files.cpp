#include "platform/files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace platform {

bool AppendLine(const QString& path, const QString& line) {
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Append)) return false;
    const QByteArray bytes = line.toLatin1() + "\r\n";
    return f.write(bytes) == bytes.size();
}

bool FileExists(const QString& path) {
    QFileInfo fi(path);
    return fi.exists() && fi.isFile();
}

bool FolderExists(const QString& path) {
    QFileInfo fi(path);
    return fi.exists() && fi.isDir();
}

bool ReplaceFile(const QString& path, const QByteArray& contents) {
    QSaveFile f(path);
    // Unbuffered, so a full disk shows in write(): a buffered write only
    // fails at commit, which then renames the short file over the old one.
    if (!f.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return false;
    if (f.write(contents) != contents.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit();
}

} // namespace platform
