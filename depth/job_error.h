#pragma once
// The description of whatever a database job threw, for its error message.

#include <QString>
#include <exception>

namespace depth {

QString ErrorText(const std::exception_ptr& e);

} // namespace depth
