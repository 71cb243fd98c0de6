#pragma once
// How the files of one run are named from the main name.

#include <QString>

namespace products {

// The name cut before its last "." (searched from the end of the whole
// path, so a folder with a dot and a file without one cuts at the folder's
// dot). A name with no "." stays whole.
QString BaseName(const QString& name);

// A path in the program's own form ("\" between folders, as the settings
// file and the dialogs give them) made fit for the file system.
QString LocalPath(const QString& name);

} // namespace products
