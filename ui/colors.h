#pragma once
// The program's colour numbers (red in the low byte) and the toolkit's colours.

#include <QColor>

namespace ui {

inline QColor toQColor(long c) {
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF),
                  static_cast<int>((c >> 16) & 0xFF));
}

inline long fromQColor(const QColor& c) {
    return c.red() | (c.green() << 8) | (static_cast<long>(c.blue()) << 16);
}

} // namespace ui
