#pragma once
// How the life cycle jobs report: their prefix, the error's description and
// how far they got.

#include <QString>
#include <exception>

namespace store {

QString Describe(const std::exception& e);
// prefix + description + " Err pt: " + step.
QString JobError(const QString& prefix, const std::exception& e, int step);

} // namespace store
