#include "workstation/ink.h"

#include <cmath>

namespace station {

namespace {

double Channel(int c) {
    const double s = c / 255.0;
    return s <= 0.03928 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
}

// Relative luminance, 0 for black to 1 for white.
double Luminance(const QColor& c) {
    return 0.2126 * Channel(c.red()) + 0.7152 * Channel(c.green()) + 0.0722 * Channel(c.blue());
}

double Contrast(const QColor& a, const QColor& b) {
    const double la = Luminance(a), lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor FromNumber(long color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

// Below this the background counts as dark.
constexpr double kDark = 0.2;
// A pen below the first contrast is lost on the background; it is lifted
// until it reaches the second, which reads at a glance across the unit
// (black becomes a light grey, dark blue a sky blue; red stays red).
constexpr double kLost = 4.5;
constexpr double kReadable = 7.0;

} // namespace

QColor ReadableOn(long color, long background) {
    const QColor fg = FromNumber(color);
    const QColor bg = FromNumber(background);
    if (Luminance(bg) >= kDark || Contrast(fg, bg) >= kLost) return fg;
    for (int step = 1; step <= 10; ++step) {
        const double t = step / 10.0;
        const QColor lifted(static_cast<int>(std::lround(fg.red() + (255 - fg.red()) * t)),
                            static_cast<int>(std::lround(fg.green() + (255 - fg.green()) * t)),
                            static_cast<int>(std::lround(fg.blue() + (255 - fg.blue()) * t)));
        if (Contrast(lifted, bg) >= kReadable) return lifted;
    }
    return Qt::white;
}

} // namespace station
