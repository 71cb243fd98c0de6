#pragma once
// The logging category of the screens.

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcUi)
