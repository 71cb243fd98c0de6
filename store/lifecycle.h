#pragma once
// The job file's life: open, verify, re-index, create, save as, compact, and
// the shared connection the chart reads through.

#include <QString>

class Workstation;

namespace store {

void OpenSharedDb(Workstation& ws, QString& path, bool& verify);
void CloseSharedDb(Workstation& ws);
void EnsureCueFolder(Workstation& ws);
void VerifyDatabase(Workstation& ws, const QString& path);
int ConvertDatabase(Workstation& ws, const QString& path);
void MakeDatabase(Workstation& ws, QString& path);
void PrimeLastRecord(Workstation& ws);
void PrimeFirstRecord(Workstation& ws);
void Compact_db(Workstation& ws);

void cmd_new_db_Click(Workstation& ws);
void cmd_open_db_Click(Workstation& ws);
void cmd_save_database_Click(Workstation& ws);

} // namespace store
