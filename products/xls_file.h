#pragma once
// The log for a spreadsheet: delimited text under the extension XLS, one row
// per foot with the peak of each gas over it, read record by record.

#include <QString>

class Workstation;

namespace products {

// False when the file could not be made (the error log says why).
bool Create_XLS_file(Workstation& ws, const QString& file_name);

} // namespace products
