#pragma once
// Small file services: append one line to a log, whole-file reads and a
// safe replace of a text file.

#include <QString>

namespace platform {

// Opens for append, writes the text and CR LF, closes. False when the file
// can't be written (missing folder, read-only, full disk): callers pass over
// a log that can't be written.
bool AppendLine(const QString& path, const QString& line);
bool FileExists(const QString& path);
bool FolderExists(const QString& path);
// Writes the whole text beside the target and renames it over the target,
// so a failed write leaves the old file as it was.
bool ReplaceFile(const QString& path, const QByteArray& contents);

} // namespace platform
