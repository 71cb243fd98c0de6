#include "platform/folder_choice.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace platform {

QString SharedFilesBeside(const QString& exeDir) {
    const QString shared = QDir::cleanPath(exeDir + "/../share/gaschart");
    return QFileInfo(shared).isDir() ? shared : QString();
}

bool FolderWritable(const QString& dir) {
    if (!QFileInfo(dir).isDir()) return false;
    // Asking the file system beats reading permission bits: root, ACLs and
    // read-only mounts all answer the same way here.
    QTemporaryFile probe(dir + "/.gaschart-probe-XXXXXX");
    return probe.open();
}

FolderChoice ChooseProgramFolder(const QString& exeDir, const QString& userDataDir) {
    FolderChoice choice;
    choice.shared = SharedFilesBeside(exeDir);
    // An installed program never keeps jobs among its own files, even for a
    // user who could write there: the next update would sweep them away.
    if (choice.shared.isEmpty() && FolderWritable(exeDir)) {
        choice.path = QDir::cleanPath(exeDir);
        return choice;
    }
    choice.path = QDir::cleanPath(userDataDir);
    choice.perUser = true;
    return choice;
}

QStringList FillFromShared(const QString& shared, const QString& folder) {
    QStringList copied;
    if (shared.isEmpty()) return copied;
    const QDir from(shared);
    QDirIterator it(shared, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString name = from.relativeFilePath(source);
        const QString target = folder + "/" + name;
        if (QFileInfo::exists(target)) continue;
        QDir().mkpath(QFileInfo(target).path());
        // Copied beside and renamed, so a start cut short leaves no half
        // file that the next start would take for the user's own.
        const QString part = target + ".part";
        QFile::remove(part);
        if (!QFile::copy(source, part)) continue;
        QFile::setPermissions(part,
                              QFile::permissions(part) | QFile::ReadOwner | QFile::WriteOwner);
        if (QFile::rename(part, target))
            copied << name;
        else
            QFile::remove(part);
    }
    copied.sort();
    return copied;
}

} // namespace platform
