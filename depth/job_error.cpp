#include "depth/job_error.h"

#include "store/db_error.h"

namespace depth {

QString ErrorText(const std::exception_ptr& e) {
    try {
        std::rethrow_exception(e);
    } catch (const store::DbError& x) {
        return x.description();
    } catch (const std::exception& x) {
        return QString::fromLocal8Bit(x.what());
    } catch (...) {
        return QStringLiteral("Unknown error");
    }
}

} // namespace depth
