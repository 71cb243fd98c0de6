// The job store before it is built: the calls of the start-up and the
// parser run and do nothing.
#include "store/lifecycle.h"

namespace store {

void OpenSharedDb(Workstation&, QString&, bool& verify) {
    verify = false;
}
void CloseSharedDb(Workstation&) {}
void EnsureCueFolder(Workstation&) {}
void VerifyDatabase(Workstation&, const QString&) {}
int ConvertDatabase(Workstation&, const QString&) {
    return 0;
}
void MakeDatabase(Workstation&, QString&) {}
void PrimeLastRecord(Workstation&) {}
void PrimeFirstRecord(Workstation&) {}
void Compact_db(Workstation&) {}
void cmd_new_db_Click(Workstation&) {}
void cmd_open_db_Click(Workstation&) {}
void cmd_save_database_Click(Workstation&) {}

} // namespace store
