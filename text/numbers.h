#pragma once
// The number rules every step from text to number (and back) goes through.

#include <QString>
#include <QStringView>
#include <cstdint>

namespace text {

// Skip leading blanks (spaces and tabs), read the longest prefix that forms a
// decimal number (sign, digits, one point, an exponent only when digits
// follow the E), ignore what follows. No digits give 0. Never fails: a number
// too big for a double gives the largest double of its sign, one too small 0.
double Val(QStringView s);

// The shortest plain decimal text that reads back to the same double, no
// leading blank ("12", "0.5", "-3.25"; -0 is "0"). Plain from 1e-6 up to
// below 1e16; outside that "1.5E+16", "2E-07". NaN and infinities show as
// "NaN", "Infinity", "-Infinity".
QString Str(double v);

// Round to the nearest whole number, a tie to the even one (2.5 -> 2, 3.5 -> 4).
double RoundEven(double v);
// The rounding to a 16-bit / 32-bit integer that the instrument values take;
// out of range values saturate instead of raising.
int16_t CInt(double v);
int32_t CLng(double v);

// Int: the largest whole number not above v (-2.5 -> -3). Fix: drop the
// fraction towards zero (-2.5 -> -2).
double Int(double v);
double Fix(double v);

// Format a number by one of the patterns the program uses: "0", "0.0",
// "0.00", "0.000", "0.0000", "00", "00.0", "0#.00", "000", "#.##", "##0.0",
// "#,###,##0", with literal text around the number kept ("0 " -> "12 ").
// Fixed decimals, ties away from zero, the tie decided on the value's
// 15-significant-digit decimal text (1.005 -> "1.01" with "0.00"). '0' is a
// digit that is always shown, '#' one shown only when needed, ',' groups
// thousands. A pattern's point is always shown: "#.##" of 3 is "3.", of 0.5
// ".5". A value that rounds to zero has no sign. Details in numbers.cpp.
QString Format(double v, QStringView pattern);

} // namespace text
