#pragma once
// A file that appears under its name only when it is whole. The text goes to
// a temporary file beside the target and is renamed over it at the end, so a
// run that fails or is killed half way leaves the previous file as it was,
// and whoever reads the file meanwhile (the office's copy job, a viewer)
// never meets half of one.

#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <stdexcept>

namespace products {

// A file that could not be written, in the program's words.
class FileError : public std::runtime_error {
  public:
    explicit FileError(const QString& text) : std::runtime_error(text.toStdString()), text_(text) {}
    const QString& text() const { return text_; }

  private:
    QString text_;
};

class StagedFile {
  public:
    // Opens the temporary file; throws FileError when the folder cannot take it.
    explicit StagedFile(const QString& path);
    // Without finish() the temporary file is removed and the target stays.
    ~StagedFile() = default;
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    void put(const QString& text) {
        buf_ += text.toUtf8();
        spill();
    }
    void put(const QByteArray& bytes) {
        buf_ += bytes;
        spill();
    }
    void put(const char* bytes) {
        buf_ += bytes;
        spill();
    }
    // Writes what is left and puts the file in place of the target.
    void finish();
    const QString& path() const { return path_; }

  private:
    void spill() {
        if (buf_.size() >= kSpill) flush();
    }
    void flush();
    static constexpr qsizetype kSpill = 1 << 20;
    QString path_;
    QSaveFile file_;
    QByteArray buf_;
};

// The reason a file cannot be opened or written, from the state of its folder.
QString FileFailure(const QString& path);

} // namespace products
