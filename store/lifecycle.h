#pragma once
// The job file's life: open, verify, re-index, create, save as, compact, and
// the shared connection the chart reads through.

#include <QString>

class Workstation;

namespace store {

// The only way to (re)open the shared set. An empty path means the text of
// txt_db_path; verify runs the checks and upgrades first (and comes back
// false). A failure is shown as "Open DB Err: " and leaves the set closed.
void OpenSharedDb(Workstation& ws, QString& path, bool& verify);
// Closes all three sets and the record writer's connection, ignoring errors.
void CloseSharedDb(Workstation& ws);
void EnsureCueFolder(Workstation& ws);
// The checks and upgrades of an open: a missing file is made, an older one
// converted when the user agrees, the six late columns added, ID renumbered
// in packet order. The path may come back changed when a file had to be
// made under another name.
void VerifyDatabase(Workstation& ws, QString& path);
// From the older generation (table OMBRI_DB_005); non-zero on success, the
// old file kept as path + ".old".
int ConvertDatabase(Workstation& ws, const QString& path);
// A new file at path: the demonstration job when the name ends
// "V11_DEMO.DB", else a blank one from the template. The path comes back
// changed when it did not end in DB.
void MakeDatabase(Workstation& ws, QString& path);
void PrimeLastRecord(Workstation& ws);
void PrimeFirstRecord(Workstation& ws);
void Compact_db(Workstation& ws);

// The blank template in the program folder, made from the schema when it is
// missing; its path.
QString EnsureTemplate(Workstation& ws);

} // namespace store
