#pragma once
// Where the program keeps its settings, logs, jobs and lock.
//
// Run from the folder it was built or unpacked in, the program keeps them
// beside itself, as it always has. Installed by a package (its shared files
// under ../share/gaschart) or in a folder the user may not write, it keeps
// them in the user's own data folder instead, filled at first start from the
// shared files; an update of the package never touches them there.

#include <QString>
#include <QStringList>

namespace platform {

struct FolderChoice {
    QString path;   // the folder the workstation runs over
    QString shared; // the installed files to fill it from; empty when not installed
    bool perUser = false;
};

// The installed files that belong beside the program: share/gaschart next
// to the bin folder. Empty when there are none (a build or unpacked folder).
QString SharedFilesBeside(const QString& exeDir);

// True when a file can be made in the folder (it exists and this user may
// write it), tried for real so a read-only mount or an ACL counts too.
bool FolderWritable(const QString& dir);

// The decision: the executable's folder when it is not an installed program
// and may be written; otherwise `userDataDir` (the per-user data folder).
FolderChoice ChooseProgramFolder(const QString& exeDir, const QString& userDataDir);

// Copies into `folder` every file under `shared` that the folder lacks, sub
// folders included, and gives the names copied (relative). A file already
// there is the user's and is never overwritten. A copy is the user's to
// write even when the shared file is read-only.
QStringList FillFromShared(const QString& shared, const QString& folder);

} // namespace platform
