#pragma once
// The logging category of the files made for others: "gaschart.products". Turn it up with
// QT_LOGGING_RULES="gaschart.products.debug=true".

#include <QLoggingCategory>

namespace products {

inline const QLoggingCategory& lcProducts() {
    // Debug lines only when asked for; warnings always.
    static const QLoggingCategory category("gaschart.products", QtInfoMsg);
    return category;
}

} // namespace products
