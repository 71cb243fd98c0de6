#include "db/columns.h"

#include "db/db_error.h"

#include <optional>
#include <sqlite3.h>

namespace db {

namespace {

[[noreturn]] void ConversionError() {
    Fail(err::ConversionError, "Data type conversion error");
}

std::optional<double> PlainNumber(const QString& s) {
    bool ok = false;
    const double d = s.trimmed().toDouble(&ok);
    if (!ok) return std::nullopt;
    return d;
}

} // namespace

[[noreturn]] void Fail(int number, const char* text) {
    throw DbError(number, QString::fromLatin1(text));
}

ColKind KindOf(const QString& name, const char* declared) {
    const QString decl = QString::fromLatin1(declared ? declared : "").toUpper();
    if (decl.contains("DATE") || decl.contains("TIME") ||
        name.compare("DT", Qt::CaseInsensitive) == 0)
        return ColKind::Date;
    if (decl.contains("INT")) return ColKind::Integer;
    if (decl.contains("CHAR") || decl.contains("CLOB") || decl.contains("TEXT"))
        return ColKind::Text;
    if (decl.isEmpty() || decl.contains("BLOB")) return ColKind::Other;
    return ColKind::Real;
}

QString Quote(const QString& name) {
    return '"' + QString(name).replace('"', "\"\"") + '"';
}

Variant ToColumn(ColKind kind, const Variant& v) {
    if (v.isNull()) return v;
    using K = Variant::Kind;
    switch (kind) {
    case ColKind::Integer:
        if (v.kind() == K::Long) return v;
        if (v.kind() == K::Double) return static_cast<long long>(v.toInt64());
        if (v.kind() == K::Text) {
            const auto d = PlainNumber(v.toText());
            if (!d) ConversionError();
            return static_cast<long long>(Variant(*d).toInt64());
        }
        ConversionError();
    case ColKind::Real:
        if (v.kind() == K::Double) return v;
        if (v.kind() == K::Long) return v.toDouble();
        if (v.kind() == K::Text) {
            const auto d = PlainNumber(v.toText());
            if (!d) ConversionError();
            return *d;
        }
        ConversionError();
    case ColKind::Text:
        if (v.kind() == K::Date) return v.toIso();
        return v.toText();
    case ColKind::Date:
        if (v.kind() == K::Date) return v;
        if (v.kind() == K::Text) {
            try {
                return v.toDate();
            } catch (const DbError&) {
                ConversionError();
            }
        }
        ConversionError();
    case ColKind::Other:
        break;
    }
    return v;
}

void Bind(sqlite3_stmt* s, int i, const Variant& v) {
    using K = Variant::Kind;
    switch (v.kind()) {
    case K::Null:
        sqlite3_bind_null(s, i);
        break;
    case K::Double:
        sqlite3_bind_double(s, i, v.toDouble());
        break;
    case K::Long:
        sqlite3_bind_int64(s, i, v.toInt64());
        break;
    case K::Text: {
        const QByteArray u = v.toText().toUtf8();
        sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        break;
    }
    case K::Date: {
        const QByteArray u = v.toIso().toUtf8();
        sqlite3_bind_text(s, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        break;
    }
    }
}

} // namespace db
