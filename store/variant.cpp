#include "store/variant.h"

#include "store/db_error.h"
#include "text/datetime.h"
#include "text/numbers.h"

#include <cmath>

namespace store {

namespace {

[[noreturn]] void NullUse() {
    throw DbError(err::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
}
[[noreturn]] void Mismatch() {
    throw DbError(err::TypeMismatch, QStringLiteral("Type mismatch"));
}

} // namespace

double Variant::toDouble() const {
    switch (kind()) {
    case Kind::Null:
        NullUse();
    case Kind::Double:
        return std::get<double>(v_);
    case Kind::Long:
        return static_cast<double>(std::get<int64_t>(v_));
    case Kind::Text: {
        bool ok = false;
        const double d = std::get<QString>(v_).trimmed().toDouble(&ok);
        if (!ok) Mismatch();
        return d;
    }
    case Kind::Date:
        break;
    }
    Mismatch();
}

int32_t Variant::toLong() const {
    if (kind() == Kind::Long) {
        const int64_t v = std::get<int64_t>(v_);
        if (v < INT32_MIN || v > INT32_MAX) throw DbError(6, QStringLiteral("Overflow"));
        return static_cast<int32_t>(v);
    }
    const double d = text::RoundEven(toDouble());
    if (d < INT32_MIN || d > INT32_MAX) throw DbError(6, QStringLiteral("Overflow"));
    return static_cast<int32_t>(d);
}

int64_t Variant::toInt64() const {
    if (kind() == Kind::Long) return std::get<int64_t>(v_);
    const double d = text::RoundEven(toDouble());
    if (!std::isfinite(d) || std::fabs(d) > 9.2e18) throw DbError(6, QStringLiteral("Overflow"));
    return static_cast<int64_t>(d);
}

QString Variant::toText() const {
    switch (kind()) {
    case Kind::Null:
        return {};
    case Kind::Double:
        return text::Str(std::get<double>(v_));
    case Kind::Long:
        return QString::number(std::get<int64_t>(v_));
    case Kind::Text:
        return std::get<QString>(v_);
    case Kind::Date:
        return text::GeneralDate(std::get<QDateTime>(v_));
    }
    return {};
}

QDateTime Variant::toDate() const {
    switch (kind()) {
    case Kind::Null:
        NullUse();
    case Kind::Date:
        return std::get<QDateTime>(v_);
    case Kind::Text: {
        const QString& s = std::get<QString>(v_);
        if (auto iso = text::FromIso(s)) return *iso;
        if (auto inst = text::ParseDateTime(s)) return *inst;
        break;
    }
    default:
        break;
    }
    Mismatch();
}

} // namespace store
