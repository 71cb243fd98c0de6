#pragma once
// Which file a path names right now: the same path can name another file
// after a save-as or a compact put a new one in its place.

#include <QString>
#include <cstdint>

namespace db {

// Device and inode of the file; 0 when there is no file.
uint64_t FileId(const QString& path);
// Both paths name one existing file.
bool SameFile(const QString& a, const QString& b);

} // namespace db
