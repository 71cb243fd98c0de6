#pragma once
// What the file products keep for the run.

#include <QString>

namespace products {

struct ProductsState {
    // Folder of the automatic file runs.
    QString autogen_dir;
    QString Gdata_separator = QStringLiteral("\t");
};

} // namespace products
