// The number rules. Everything here is locale free: the point is always '.',
// the thousands mark always ',', whatever the machine is set to.

#include "text/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace text {

namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// The decimal digits of a magnitude in scientific form as to_chars writes it
// ("d.ddde+XX" or "de+XX"): the digits without the point, and the power of
// ten of the first one.
struct Scientific {
    std::string digits;
    int exponent = 0;
};

Scientific SplitScientific(const char* first, const char* last) {
    Scientific out;
    const char* p = first;
    for (; p != last && *p != 'e'; ++p)
        if (*p != '.') out.digits.push_back(*p);
    if (p != last) {
        ++p; // 'e'
        bool negative = false;
        if (p != last && (*p == '+' || *p == '-')) negative = (*p++ == '-');
        int e = 0;
        std::from_chars(p, last, e);
        out.exponent = negative ? -e : e;
    }
    return out;
}

} // namespace

// ---------------------------------------------------------------------------
// Val

double Val(QStringView s) {
    qsizetype i = 0;
    const qsizetype n = s.size();
    while (i < n && (s[i] == u' ' || s[i] == u'\t')) ++i;

    // Gather the longest numeric prefix as plain ASCII, then let from_chars
    // do the correctly rounded conversion.
    std::string number;
    bool negative = false;
    if (i < n && (s[i] == u'+' || s[i] == u'-')) negative = (s[i++] == u'-');

    int mantissaDigits = 0;
    // Power of ten of the first non-zero mantissa digit, to tell an overflow
    // from an underflow when from_chars gives up.
    int leadPower = 0;
    bool seenNonZero = false;
    int intDigits = 0;
    while (i < n && IsDigit(s[i])) {
        const char c = static_cast<char>(s[i].unicode());
        if (c != '0' && !seenNonZero) seenNonZero = true;
        if (seenNonZero) ++intDigits;
        number.push_back(c);
        ++mantissaDigits;
        ++i;
    }
    if (seenNonZero) leadPower = intDigits - 1;
    if (i < n && s[i] == u'.') {
        number.push_back('.');
        ++i;
        int place = 0;
        while (i < n && IsDigit(s[i])) {
            const char c = static_cast<char>(s[i].unicode());
            --place;
            if (c != '0' && !seenNonZero) {
                seenNonZero = true;
                leadPower = place;
            }
            number.push_back(c);
            ++mantissaDigits;
            ++i;
        }
    }
    if (mantissaDigits == 0) return 0.0;

    // An exponent counts only when at least one digit follows the letter
    // (and its sign): "1e" and "1e+" read as 1.
    long long exponentValue = 0;
    if (i < n && (s[i] == u'e' || s[i] == u'E')) {
        qsizetype j = i + 1;
        bool expNegative = false;
        if (j < n && (s[j] == u'+' || s[j] == u'-')) expNegative = (s[j++] == u'-');
        if (j < n && IsDigit(s[j])) {
            number.push_back('e');
            if (expNegative) number.push_back('-');
            while (j < n && IsDigit(s[j])) {
                const char c = static_cast<char>(s[j].unicode());
                number.push_back(c);
                if (exponentValue < 100000) exponentValue = exponentValue * 10 + (c - '0');
                ++j;
            }
            if (expNegative) exponentValue = -exponentValue;
        }
    }

    double v = 0.0;
    const auto [ptr, ec] = std::from_chars(number.data(), number.data() + number.size(), v);
    (void)ptr;
    if (ec == std::errc::result_out_of_range) {
        // Never fail: too big saturates at the largest double, too small is 0.
        const bool tooBig = seenNonZero && leadPower + exponentValue > 0;
        v = tooBig ? std::numeric_limits<double>::max() : 0.0;
    } else if (ec != std::errc()) {
        v = 0.0;
    }
    return negative ? -v : v;
}

// ---------------------------------------------------------------------------
// Str

QString Str(double v) {
    if (std::isnan(v)) return QStringLiteral("NaN");
    if (std::isinf(v)) return v < 0 ? QStringLiteral("-Infinity") : QStringLiteral("Infinity");
    if (v == 0.0) return QStringLiteral("0"); // -0 too

    // Shortest digits that read back to the same double.
    char buf[64];
    const auto res =
        std::to_chars(buf, buf + sizeof buf, std::fabs(v), std::chars_format::scientific);
    const Scientific sci = SplitScientific(buf, res.ptr);
    const std::string& d = sci.digits;
    const int e = sci.exponent;
    const int nd = static_cast<int>(d.size());

    std::string out;
    if (v < 0) out.push_back('-');
    if (e >= -6 && e <= 15) {
        // Plain decimal: everything from 1e-6 up to below 1e16.
        if (e >= 0) {
            for (int k = 0; k <= e; ++k) out.push_back(k < nd ? d[k] : '0');
            if (nd > e + 1) {
                out.push_back('.');
                out.append(d, e + 1, std::string::npos);
            }
        } else {
            out += "0.";
            out.append(-e - 1, '0');
            out += d;
        }
    } else {
        // Out of the plain range: mantissa and a signed exponent of at least
        // two digits, "1.5E+16", "2E-07".
        out.push_back(d[0]);
        if (nd > 1) {
            out.push_back('.');
            out.append(d, 1, std::string::npos);
        }
        out.push_back('E');
        out.push_back(e < 0 ? '-' : '+');
        const int ae = std::abs(e);
        if (ae < 10) out.push_back('0');
        out += std::to_string(ae);
    }
    return QString::fromLatin1(out.data(), static_cast<qsizetype>(out.size()));
}

// ---------------------------------------------------------------------------
// Rounding

double RoundEven(double v) {
    if (!std::isfinite(v)) return v;
    const double lower = std::floor(v);
    // Exact: the fraction of a double is itself a double.
    const double frac = v - lower;
    if (frac < 0.5) return lower;
    if (frac > 0.5) return lower + 1.0;
    return std::fmod(lower, 2.0) == 0.0 ? lower : lower + 1.0;
}

namespace {

template <typename Int> Int SaturatingRound(double v) {
    if (std::isnan(v)) return 0;
    const double r = RoundEven(v);
    if (r <= static_cast<double>(std::numeric_limits<Int>::min()))
        return std::numeric_limits<Int>::min();
    if (r >= static_cast<double>(std::numeric_limits<Int>::max()))
        return std::numeric_limits<Int>::max();
    return static_cast<Int>(r);
}

} // namespace

int16_t CInt(double v) {
    return SaturatingRound<int16_t>(v);
}
int32_t CLng(double v) {
    return SaturatingRound<int32_t>(v);
}

double Int(double v) {
    return std::floor(v);
}
double Fix(double v) {
    return std::trunc(v);
}

// ---------------------------------------------------------------------------
// Format
//
// A pattern is: literal text, the number part, literal text. The number part
// is the run that starts at the first '0', '#' or '.' and goes on over
// '0', '#', ',' and at most one '.'. Literal text is copied as it stands
// ("0 " puts a blank after the number).
//
// Integer side: all digits of the value are shown; the places from the
// leftmost '0' down to the point are always filled ("00" -> "05", "0#.00" ->
// "05.50"); with no '0' at all a zero integer part shows nothing ("#.##" of
// 0.5 is ".5"). A ',' anywhere on the integer side groups thousands.
//
// Fraction side: as many decimals as placeholders; trailing zeros drop back
// to the last '0' ("#.##" of 3 is "3.", of 2.5 is "2.5"). The point is shown
// whenever the pattern has one, so "#.##" of 3 keeps its point, as the old
// runtime did.
//
// Rounding: the value is first written with 15 significant digits (what a
// double reliably carries, correctly rounded), and the tie is then decided
// on that decimal text, away from zero. So 2.5 -> "3", 1.25 -> "1.3" and
// 1.005 -> "1.01" even though the double nearest 1.005 sits just below it,
// and a computed 0.285 * 100 (28.499999999999996) formats as "29". Binary
// noise past the 15th digit never decides a tie.
//
// The sign is a leading '-' in front of everything; a value that rounds to
// zero shows no sign. A pattern without any '0' or '#' gives Str(v).

namespace {

struct Pattern {
    QString prefix;
    QString suffix;
    int minInt = 0;
    bool group = false;
    bool point = false;
    int decimals = 0;
    int requiredDecimals = 0;
    bool hasPlaceholder = false;
};

Pattern ParsePattern(QStringView p) {
    Pattern out;
    qsizetype start = 0;
    while (start < p.size() && p[start] != u'0' && p[start] != u'#' && p[start] != u'.') ++start;
    out.prefix = p.left(start).toString();

    qsizetype i = start;
    // Integer side.
    int placesFromFirstZero = 0;
    bool seenZero = false;
    for (; i < p.size(); ++i) {
        const QChar c = p[i];
        if (c == u'0' || c == u'#') {
            out.hasPlaceholder = true;
            if (c == u'0') seenZero = true;
            if (seenZero) ++placesFromFirstZero;
        } else if (c == u',') {
            out.group = true;
        } else {
            break;
        }
    }
    out.minInt = placesFromFirstZero;
    // Fraction side.
    if (i < p.size() && p[i] == u'.') {
        out.point = true;
        ++i;
        for (; i < p.size(); ++i) {
            const QChar c = p[i];
            if (c == u'0' || c == u'#') {
                out.hasPlaceholder = true;
                ++out.decimals;
                if (c == u'0') out.requiredDecimals = out.decimals;
            } else if (c != u',') {
                break;
            }
        }
    }
    out.suffix = p.mid(i).toString();
    return out;
}

// |v| rounded to a fixed number of decimals, ties away from zero on the
// 15-digit decimal text. Returns the digits of round(|v| * 10^decimals),
// at least decimals + 1 of them (leading zeros kept).
std::string FixedDigits(double magnitude, int decimals) {
    char buf[64];
    const auto res =
        std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific, 14);
    const Scientific sci = SplitScientific(buf, res.ptr);
    const std::string& d = sci.digits;
    const int nd = static_cast<int>(d.size());

    int point = sci.exponent + 1; // digits before the point
    const int keep = point + decimals;
    std::string kept;
    if (keep >= nd) {
        kept = d + std::string(keep - nd, '0');
    } else if (keep >= 0) {
        kept = d.substr(0, keep);
        if (d[keep] >= '5') {
            int k = keep - 1;
            while (k >= 0 && kept[k] == '9') kept[k--] = '0';
            if (k >= 0)
                ++kept[k];
            else
                kept.insert(kept.begin(), '1');
        }
    }
    // keep < 0: far below half a unit of the last decimal, it is zero.
    if (static_cast<int>(kept.size()) < decimals + 1)
        kept.insert(kept.begin(), decimals + 1 - kept.size(), '0');
    return kept;
}

} // namespace

QString Format(double v, QStringView pattern) {
    const Pattern pat = ParsePattern(pattern);
    if (!pat.hasPlaceholder || !std::isfinite(v)) return Str(v);

    const std::string digits = FixedDigits(std::fabs(v), pat.decimals);
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;

    const auto split = digits.size() - static_cast<std::size_t>(pat.decimals);
    std::string intPart = digits.substr(0, split);
    std::string fracPart = digits.substr(split);

    intPart.erase(0, intPart.find_first_not_of('0') == std::string::npos
                         ? intPart.size()
                         : intPart.find_first_not_of('0'));
    if (static_cast<int>(intPart.size()) < pat.minInt)
        intPart.insert(intPart.begin(), pat.minInt - intPart.size(), '0');
    if (pat.group && intPart.size() > 3) {
        std::string grouped;
        const std::size_t lead = intPart.size() % 3;
        for (std::size_t k = 0; k < intPart.size(); ++k) {
            if (k != 0 && (k + 3 - lead) % 3 == 0) grouped.push_back(',');
            grouped.push_back(intPart[k]);
        }
        intPart = grouped;
    }
    while (static_cast<int>(fracPart.size()) > pat.requiredDecimals && fracPart.back() == '0')
        fracPart.pop_back();

    QString out;
    if (v < 0 && !isZero) out += u'-';
    out += pat.prefix;
    out += QString::fromLatin1(intPart.data(), static_cast<qsizetype>(intPart.size()));
    if (pat.point) {
        out += u'.';
        out += QString::fromLatin1(fracPart.data(), static_cast<qsizetype>(fracPart.size()));
    }
    out += pat.suffix;
    return out;
}

} // namespace text
