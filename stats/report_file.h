#pragma once
// The report file while it is being written: a temporary file beside the
// report, renamed over it once the report is whole, so whoever opens the
// report meanwhile finds the last whole one.

#include <QSaveFile>
#include <QString>
#include <QStringList>

namespace stats {

class ReportFile {
  public:
    explicit ReportFile(const QString& path) : f_(path) {}
    // False when the report's folder can't be written to; why is in error().
    bool open();
    QString error() const { return f_.errorString(); }
    // A line and its CR LF.
    void line(const QString& text);
    void lines(const QStringList& texts);
    // Text whose lines end in CR LF already.
    void text(const QString& text);
    // Puts the report in place of the old one; false if any write failed,
    // and the old report stays.
    bool commit();

  private:
    QSaveFile f_;
};

} // namespace stats
