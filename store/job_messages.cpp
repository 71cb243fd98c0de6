#include "store/job_messages.h"

#include "store/db_error.h"

namespace store {

QString Describe(const std::exception& e) {
    if (const auto* db = dynamic_cast<const DbError*>(&e)) return db->description();
    return QString::fromUtf8(e.what());
}

QString JobError(const QString& prefix, const std::exception& e, int step) {
    return prefix + Describe(e) + " Err pt: " + QString::number(step);
}

} // namespace store
