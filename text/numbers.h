#pragma once
// The number rules every step from text to number (and back) goes through.

#include <QString>
#include <QStringView>
#include <cstdint>

namespace text {

// Skip leading blanks, read the longest prefix that forms a decimal number
// (sign, digits, one point, exponent), ignore what follows. No digits give 0.
// Never fails.
double Val(QStringView s);

// The shortest plain decimal text of a number, no leading blank ("12", "0.5",
// "-3.25"). Never exponent form for the magnitudes this program meets.
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
// "#,###,##0". Fixed decimals, ties away from zero. '0' is a digit that is
// always shown, '#' one shown only when needed, ',' groups thousands.
QString Format(double v, QStringView pattern);

} // namespace text
