#pragma once
// The value of one field: Null, a double, a long, a text or a date. Null is a
// state of its own, never a zero in disguise: arithmetic on it fails as it
// does for the jobs that rely on that (a Null depth ends a lag pass through
// its handler).

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <variant>

namespace db {

class Variant {
  public:
    enum class Kind { Null, Double, Long, Text, Date };

    Variant() = default;
    Variant(double v) : v_(v) {}
    Variant(int v) : v_(static_cast<int64_t>(v)) {}
    Variant(long v) : v_(static_cast<int64_t>(v)) {}
    Variant(long long v) : v_(static_cast<int64_t>(v)) {}
    Variant(const QString& v) : v_(v) {}
    Variant(const char* v) : v_(QString::fromUtf8(v)) {}
    Variant(const QDateTime& v) : v_(v) {}
    static Variant Null() { return {}; }
    // A date as the file keeps it, "YYYY-MM-DD HH:MM:SS"; made into a
    // QDateTime only when asked for, since that asks the system for the time
    // zone, and a long pass reads a date on every row. Text of another form
    // stays text.
    static Variant FromIso(const QString& text);

    Kind kind() const;
    bool isNull() const { return kind() == Kind::Null; }

    // A number. Text that is a plain number reads as it; other text fails
    // with a type mismatch, Null with "Invalid use of Null".
    double toDouble() const;
    // The number rounded to a 32-bit long, a tie to the even one.
    int32_t toLong() const;
    int64_t toInt64() const;
    // Text as a string expression would give it: Null gives the empty text,
    // numbers their shortest plain text, dates "MM/DD/YYYY HH:MM:SS".
    QString toText() const;
    // A date; text in ISO form ("YYYY-MM-DD HH:MM:SS") or an instrument form
    // converts, anything else fails.
    QDateTime toDate() const;
    // A date as the file keeps it, "YYYY-MM-DD HH:MM:SS".
    QString toIso() const;

    // The number, or `fallback` when the field is Null.
    double valueOr(double fallback) const { return isNull() ? fallback : toDouble(); }

    bool operator==(const Variant& o) const;

  private:
    struct IsoDate {
        QString text;
        bool operator==(const IsoDate&) const = default;
    };
    std::variant<std::monostate, double, int64_t, QString, QDateTime, IsoDate> v_;
};

} // namespace db
