#include "db/variant.h"

#include "db/db_error.h"
#include "text/datetime.h"
#include "text/numbers.h"

#include <cmath>

namespace db {

namespace {

[[noreturn]] void NullUse() {
    throw DbError(err::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
}
[[noreturn]] void Mismatch() {
    throw DbError(err::TypeMismatch, QStringLiteral("Type mismatch"));
}

bool Digits(const QString& s, int from, int count, int* value) {
    int v = 0;
    for (int i = from; i < from + count; ++i) {
        const QChar c = s[i];
        if (c < u'0' || c > u'9') return false;
        v = v * 10 + (c.unicode() - u'0');
    }
    *value = v;
    return true;
}

} // namespace

Variant Variant::FromIso(const QString& text) {
    int y, mo, d, h, mi, sec;
    if (text.size() == 19 && text[4] == u'-' && text[7] == u'-' && text[10] == u' ' &&
        text[13] == u':' && text[16] == u':' && Digits(text, 0, 4, &y) && Digits(text, 5, 2, &mo) &&
        Digits(text, 8, 2, &d) && Digits(text, 11, 2, &h) && Digits(text, 14, 2, &mi) &&
        Digits(text, 17, 2, &sec) && QDate::isValid(y, mo, d) && QTime::isValid(h, mi, sec)) {
        Variant v;
        v.v_ = IsoDate{text};
        return v;
    }
    if (auto other = text::FromIso(text)) return *other;
    return text;
}

Variant::Kind Variant::kind() const {
    return v_.index() == 5 ? Kind::Date : static_cast<Kind>(v_.index());
}

bool Variant::operator==(const Variant& o) const {
    if (kind() != o.kind()) return false;
    if (kind() != Kind::Date) return v_ == o.v_;
    if (v_.index() == 5 && o.v_.index() == 5)
        return std::get<IsoDate>(v_).text == std::get<IsoDate>(o.v_).text;
    return toDate() == o.toDate();
}

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
        if (const auto* iso = std::get_if<IsoDate>(&v_)) {
            const QString& t = iso->text;
            return t.mid(5, 2) + u'/' + t.mid(8, 2) + u'/' + t.left(4) + u' ' + t.mid(11);
        }
        return text::GeneralDate(std::get<QDateTime>(v_));
    }
    return {};
}

QDateTime Variant::toDate() const {
    switch (kind()) {
    case Kind::Null:
        NullUse();
    case Kind::Date:
        if (const auto* iso = std::get_if<IsoDate>(&v_)) return *text::FromIso(iso->text);
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

QString Variant::toIso() const {
    if (const auto* iso = std::get_if<IsoDate>(&v_)) return iso->text;
    return text::IsoDateTime(toDate());
}

} // namespace db
