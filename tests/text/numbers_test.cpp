// The number rules: Val, Str, the roundings and Format.

#include "text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Val, ReadsTheLongestNumberAtTheFrontAndNeverFails) {
    // Only blanks and tabs are skipped; digits of another script are no digits.
    // clang-format off
    const std::pair<const char16_t*, double> cases[] = {
        {u"  12.5abc", 12.5},   {u"-3", -3.0},        {u".5", 0.5},         {u"1e3", 1000.0},
        {u"1e", 1.0},           {u"abc", 0.0},        {u"", 0.0},           {u"+7", 7.0},
        {u"- 3", 0.0},          {u"1,234", 1.0},      {u"\t \t4.25", 4.25}, {u"12.", 12.0},
        {u"-.5", -0.5},         {u"1.2.3", 1.2},      {u"1e-2x", 0.01},     {u"1E+2", 100.0},
        {u"1e+", 1.0},          {u"12e2.5", 1200.0},  {u".e5", 0.0},        {u"e5", 0.0},
        {u"+-3", 0.0},          {u"0x1A", 0.0},       {u"007", 7.0},        {u"1d3", 1.0},
        {u"3 4", 3.0},          {u"\n5", 0.0},        {u"\u0661\u0662", 0.0},
        {u"0e999999", 0.0},     {u"1e-400", 0.0},     {u"1e400", kMax},     {u"-1e400", -kMax},
        {u"0.001e311", 1e308},  {u"0.30000000000000004", 0.1 + 0.2},
        {u"0.0000000001e-300", 1e-310},
        {u"123456789012345678901234567890", 123456789012345678901234567890.0},
        {u"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()}};
    // clang-format on
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(text::Val(QString::fromUtf16(text)), expected)
            << QString::fromUtf16(text).toStdString();
    EXPECT_TRUE(std::signbit(text::Val(u"-0")));
}

TEST(Str, ShortestPlainDecimalThatReadsBack) {
    // The plain range runs from 1e-6 to below 1e16.
    // clang-format off
    const std::pair<double, const char*> cases[] = {
        {12, "12"},         {0.5, "0.5"},        {1234.5, "1234.5"},  {-3.25, "-3.25"},
        {0.0, "0"},         {-0.0, "0"},         {0.001, "0.001"},    {1e-6, "0.000001"},
        {1e16, "1E+16"},    {1e-7, "1E-07"},     {2.5e20, "2.5E+20"}, {-1e300, "-1E+300"},
        {kNaN, "NaN"},      {kInf, "Infinity"},  {-kInf, "-Infinity"},
        {1e15, "1000000000000000"},              {0.1 + 0.2, "0.30000000000000004"}};
    // clang-format on
    for (const auto& [v, expected] : cases) EXPECT_EQ(text::Str(v), expected) << v;
}

TEST(Str, RoundTripsThroughVal) {
    std::mt19937_64 gen(20261123);

    // Any double at all reads back bit for bit, without a blank in front and
    // without an exponent inside the plain range.
    std::uniform_real_distribution<double> mantissa(1.0, 10.0);
    std::uniform_int_distribution<int> power(-12, 20);
    for (int k = 0; k < 20000; ++k) {
        double v = mantissa(gen) * std::pow(10.0, power(gen));
        if (k % 2) v = -v;
        const QString s = text::Str(v);
        ASSERT_EQ(text::Val(s), v) << s.toStdString();
        ASSERT_FALSE(s.startsWith(u' '));
        const double a = std::fabs(v);
        if (a >= 1e-6 && a < 1e16) {
            ASSERT_FALSE(s.contains(u'E')) << s.toStdString();
        }
    }
}

TEST(Rounding, TiesNegativesAndSaturation) {
    // clang-format off
    // RoundEven: floor(x + 0.5) gets 0.49999999999999994 wrong.
    const std::pair<double, double> even[] = {
        {0.5, 0.0},    {1.5, 2.0},    {2.5, 2.0},     {-0.5, 0.0},    {-1.5, -2.0}, {-2.5, -2.0},
        {2.4999, 2.0}, {2.5001, 3.0}, {-2.6, -3.0},   {1e17, 1e17},   {0.49999999999999994, 0.0},
        {4503599627370495.5, 4503599627370496.0}};
    // CInt: 32767.5 would be 32768.
    const std::pair<double, int16_t> cint[] = {
        {2.5, 2},          {-3.5, -4},          {32767.4, 32767}, {32767.5, 32767}, {40000, 32767},
        {-40000, -32768},  {-32768.5, -32768},  {-kInf, -32768},  {kNaN, 0}};
    const std::pair<double, int32_t> clng[] = {
        {100000.5, 100000},         {40000, 40000},     {2147483646.5, 2147483646},
        {2147483647.5, 2147483647}, {3e9, 2147483647},  {kNaN, 0},
        {-3e9, std::numeric_limits<int32_t>::min()}};
    // Value, Int (down), Fix (towards zero).
    const double intFix[][3] = {
        {-2.5, -3.0, -2.0}, {2.9, 2.0, 2.0}, {-0.1, -1.0, 0.0}, {-3.0, -3.0, -3.0}};
    // clang-format on
    for (const auto& [v, r] : even) EXPECT_EQ(text::RoundEven(v), r) << v;
    for (const auto& [v, r] : cint) EXPECT_EQ(text::CInt(v), r) << v;
    for (const auto& [v, r] : clng) EXPECT_EQ(text::CLng(v), r) << v;
    for (const auto& c : intFix) {
        EXPECT_EQ(text::Int(c[0]), c[1]) << c[0];
        EXPECT_EQ(text::Fix(c[0]), c[2]) << c[0];
    }
}

TEST(Format, EveryPatternWithTiesNegativesAndZero) {
    // Ties away from zero, also on the 15-digit text (0.285 * 100 is
    // 28.499999999999996), carries, padding, grouping and the sign of what
    // rounds to zero.
    struct Case {
        double value;
        const char16_t* pattern;
        const char* expected;
    };
    // clang-format off
    const Case cases[] = {
        {12.4, u"0", "12"},          {-2.5, u"0", "-3"},          {-0.4, u"0", "0"},
        {0.0, u"0", "0"},            {-0.0, u"0", "0"},           {0.285 * 100.0, u"0", "29"},
        {1e20, u"0", "100000000000000000000"},
        {1.25, u"0.0", "1.3"},       {0.0, u"0.0", "0.0"},        {-0.04, u"0.0", "0.0"},
        {9.96, u"0.0", "10.0"},      {0.05, u"0.0", "0.1"},       {1e-5, u"0.0", "0.0"},
        {1.005, u"0.00", "1.01"},    {-1.005, u"0.00", "-1.01"},  {0.995, u"0.00", "1.00"},
        {0.125, u"0.00", "0.13"},    {-0.375, u"0.00", "-0.38"},  {499.5, u"0", "500"},
        {1.004, u"0.00", "1.00"},    {-0.005, u"0.00", "-0.01"},  {3.14159, u"0.000", "3.142"},
        {-1.23456, u"0.0000", "-1.2346"},
        {5.0, u"00", "05"},          {0.0, u"00", "00"},          {123.0, u"00", "123"},
        {-5.0, u"00", "-05"},        {7.0, u"000", "007"},        {5.25, u"00.0", "05.3"},
        {-3.35, u"00.0", "-03.4"},   {5.5, u"0#.00", "05.50"},    {0.04, u"##0.0", "0.0"},
        {0.5, u"#.##", ".5"},        {3.0, u"#.##", "3."},        {2.5, u"#.##", "2.5"},
        {0.999, u"#.##", "1."},      {0.0, u"#.##", "."},         {-0.5, u"#.##", "-.5"},
        {-0.001, u"#.##", "."},
        {1234567.0, u"#,###,##0", "1,234,567"}, {0.0, u"#,###,##0", "0"},
        {100.0, u"#,###,##0", "100"},           {999.5, u"#,###,##0", "1,000"},
        {12345.0, u"#,###,##0", "12,345"},      {-1234.5, u"#,###,##0", "-1,235"},
        {12.4, u"0 ", "12 "},        {-2.5, u"0 ", "-3 "},        {3.14, u"0.0 ft", "3.1 ft"},
        {-5.0, u"$0.00", "-$5.00"}};
    // clang-format on
    for (const auto& c : cases) {
        const QString pattern = QString::fromUtf16(c.pattern);
        EXPECT_EQ(text::Format(c.value, pattern), QString::fromLatin1(c.expected))
            << c.value << " with \"" << pattern.toStdString() << "\"";
    }
    // No digit placeholder at all: the plain text of the number.
    EXPECT_EQ(text::Format(1.5, u""), "1.5");
    EXPECT_EQ(text::Format(-2.25, u"abc"), "-2.25");
}

} // namespace
