#pragma once
// A temporary program folder with the files the workstation ships with, and
// a workstation over it.

#include "acquisition/workstation.h"

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

} // namespace testkit
