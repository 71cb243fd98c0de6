#include "db/job_error.h"

#include "db/db_error.h"

namespace db {

QString Describe(const std::exception& e) {
    if (const auto* d = dynamic_cast<const DbError*>(&e)) return d->description();
    return QString::fromUtf8(e.what());
}

QString ErrorText(const std::exception_ptr& e) {
    try {
        std::rethrow_exception(e);
    } catch (const std::exception& x) {
        return Describe(x);
    } catch (...) {
        return QStringLiteral("Unknown error");
    }
}

QString JobError(const QString& prefix, const std::exception& e, int step) {
    return prefix + Describe(e) + " Err pt: " + QString::number(step);
}

} // namespace db
