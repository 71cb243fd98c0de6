#pragma once
// The depth log in LAS form: one row per foot from the depth arrays, with the
// gas only file and, when asked, the file of the last 48 hours beside it.

#include <QString>

class Workstation;

namespace products {

// False when the file could not be made (the error log says why).
bool Create_LAS_file(Workstation& ws, const QString& file_name);

} // namespace products
