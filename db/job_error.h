#pragma once
// How a job reports what went wrong: its prefix, the error's description
// and how far it got.

#include <QString>
#include <exception>

namespace db {

// The description of an error: the engine's own words for a database
// error, the text of anything else.
QString Describe(const std::exception& e);
// The same for whatever was thrown, known type or not.
QString ErrorText(const std::exception_ptr& e);
// prefix + description + " Err pt: " + step.
QString JobError(const QString& prefix, const std::exception& e, int step);

} // namespace db
