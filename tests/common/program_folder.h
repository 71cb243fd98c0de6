#pragma once
// A temporary program folder with the files the workstation ships with, and
// a workstation over it.

#include "workstation/workstation.h"

#include <QTemporaryDir>
#include <memory>

namespace testkit {

class ProgramFolder {
  public:
    ProgramFolder();
    const QString& path() const { return path_; }
    QString file(const QString& name) const { return path_ + "/" + name; }
    // The whole text of a file in the folder (empty when missing).
    QString read(const QString& name) const;
    bool exists(const QString& name) const;

  private:
    QTemporaryDir dir_;
    QString path_;
};

// A workstation wired as the program wires it: the named timers bound to
// their ticks and the services of the layers above.
class WiredWorkstation : public Workstation {
  public:
    explicit WiredWorkstation(const QString& dir, platform::Dialogs* dialogs = nullptr);
};

} // namespace testkit
