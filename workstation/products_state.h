#pragma once
// What the file products keep for the run.

#include <QString>

namespace products {

struct ProductsState {
    // The delimiter of the depth LAS and XLS files.
    QString Gdata_separator = QStringLiteral("\t");
    // Minutes between automatic runs, and the seconds left of the count.
    double autogen_minutes = 0;
    double autogen_seconds_left = 0;
    // Folder of the automatic run in progress (txt_autogen_dir when it began).
    QString autogen_dir;
    // True while tmr_autogen drives cmd_gen_log_files_Click.
    bool autogen_running = false;
    // True while the save dialog of the file command is up.
    bool file_dialog_open = false;
};

} // namespace products
