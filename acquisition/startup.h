#pragma once
// Start-up and exit of the workstation.

#include <QLockFile>
#include <QString>

class Workstation;

namespace acq {

// The main screen's title: the long form, or the short one when minimized.
QString MainTitle(const Workstation& ws);

// The lock that keeps one running copy per program folder.
QString SingleCopyLockPath(const Workstation& ws);

// The stop box of a start that could not take the lock: another copy holds
// it, or (any other error) it could not be made at all.
struct Refusal {
    QString title;
    QString text;
};
Refusal SingleCopyRefusal(QLockFile::LockError error, const QString& lockPath);

// Runs the start-up steps in order. Returns false when the lock could not be
// taken: another copy runs in this folder, or the lock could not be made
// (after the box that says so).
bool Form_Load(Workstation& ws);

// The close of the main screen. Returns true when the operator said Yes and
// everything is closed; false when the program goes on.
bool Form_Unload(Workstation& ws);

// The end the system asks for (shut-down, a closed terminal): no question;
// settings and zones are saved and everything closed as after Yes.
void StopWithoutQuestion(Workstation& ws);

} // namespace acq
