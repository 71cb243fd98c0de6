#pragma once
// The value of one field: Null, a double, a long, a text or a date. Null is a
// state of its own, never a zero in disguise: arithmetic on it fails as it
// does for the jobs that rely on that (a Null depth ends a lag pass through
// its handler).

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <variant>

namespace store {

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

    Kind kind() const { return static_cast<Kind>(v_.index()); }
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

    // The number, or `fallback` when the field is Null.
    double valueOr(double fallback) const { return isNull() ? fallback : toDouble(); }

    bool operator==(const Variant& o) const { return v_ == o.v_; }

  private:
    std::variant<std::monostate, double, int64_t, QString, QDateTime> v_;
};

} // namespace store
