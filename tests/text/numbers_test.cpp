// The number rules: Val, Str, the roundings and Format.

#include "text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

struct ValCase {
    const char16_t* text;
    double expected;
};

TEST(Val, ReadsTheLongestNumberAtTheFrontAndNeverFails) {
    const ValCase cases[] = {
        {u"  12.5abc", 12.5},
        {u"-3", -3.0},
        {u".5", 0.5},
        {u"1e3", 1000.0},
        {u"1e", 1.0},
        {u"abc", 0.0},
        {u"", 0.0},
        {u"+7", 7.0},
        {u"- 3", 0.0},
        {u"1,234", 1.0},
        {u"\t \t4.25", 4.25},
        {u"12.", 12.0},
        {u"-.5", -0.5},
        {u"1.2.3", 1.2},
        {u"1e-2x", 0.01},
        {u"1E+2", 100.0},
        {u"1e+", 1.0},
        {u"12e2.5", 1200.0},
        {u".e5", 0.0},
        {u".", 0.0},
        {u"e5", 0.0},
        {u"+-3", 0.0},
        {u"0x1A", 0.0},
        {u"007", 7.0},
        {u"1d3", 1.0},
        {u"  -0.25 ft", -0.25},
        {u"3 4", 3.0},
        {u"\n5", 0.0},          // only blanks and tabs are skipped
        {u"\u0661\u0662", 0.0}, // digits of another script are not digits here
        {u"0.1", 0.1},
        {u"123456789012345678901234567890", 123456789012345678901234567890.0},
        {u"0.30000000000000004", 0.1 + 0.2},
        {u"0e999999", 0.0},
        {u"1e-400", 0.0},
        {u"0.0000000001e-300", 1e-310},
        {u"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
        {u"1e400", std::numeric_limits<double>::max()},
        {u"-1e400", -std::numeric_limits<double>::max()},
        {u"0.001e311", 1e308},
    };
    for (const auto& c : cases) {
        const QString text = QString::fromUtf16(c.text);
        EXPECT_EQ(text::Val(text), c.expected) << text.toStdString();
    }
    EXPECT_TRUE(std::signbit(text::Val(u"-0")));
}

TEST(Str, ShortestPlainDecimalThatReadsBack) {
    EXPECT_EQ(text::Str(12), "12");
    EXPECT_EQ(text::Str(0.5), "0.5");
    EXPECT_EQ(text::Str(1234.5), "1234.5");
    EXPECT_EQ(text::Str(-3.25), "-3.25");
    EXPECT_EQ(text::Str(0.0), "0");
    EXPECT_EQ(text::Str(-0.0), "0");
    EXPECT_EQ(text::Str(100), "100");
    EXPECT_EQ(text::Str(0.001), "0.001");
    EXPECT_EQ(text::Str(123456789), "123456789");
    EXPECT_EQ(text::Str(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(text::Str(1.0 / 3.0), "0.3333333333333333");
    // The plain range runs from 1e-6 to below 1e16.
    EXPECT_EQ(text::Str(1e15), "1000000000000000");
    EXPECT_EQ(text::Str(-2.5e15), "-2500000000000000");
    EXPECT_EQ(text::Str(1e-6), "0.000001");
    EXPECT_EQ(text::Str(-1.25e-6), "-0.00000125");
    EXPECT_EQ(text::Str(1e16), "1E+16");
    EXPECT_EQ(text::Str(1e-7), "1E-07");
    EXPECT_EQ(text::Str(1.5e-7), "1.5E-07");
    EXPECT_EQ(text::Str(2.5e20), "2.5E+20");
    EXPECT_EQ(text::Str(-1e300), "-1E+300");
    EXPECT_EQ(text::Str(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(text::Str(std::numeric_limits<double>::infinity()), "Infinity");
    EXPECT_EQ(text::Str(-std::numeric_limits<double>::infinity()), "-Infinity");
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

    // Short decimal texts come back exactly as written: that is what
    // "shortest" means for numbers typed by a person.
    std::uniform_int_distribution<long long> whole(0, 99999999);
    std::uniform_int_distribution<int> places(0, 6);
    for (int k = 0; k < 20000; ++k) {
        const long long n = whole(gen);
        const int p = places(gen);
        QString digits = QString::number(n).rightJustified(p + 1, u'0');
        QString written = digits.left(digits.size() - p);
        QString fraction = digits.right(p);
        while (fraction.endsWith(u'0')) fraction.chop(1);
        if (!fraction.isEmpty()) written += u'.' + fraction;
        if (n != 0 && k % 3 == 0) written.prepend(u'-');
        ASSERT_EQ(text::Str(text::Val(written)), written);
    }
}

TEST(Rounding, TiesNegativesAndSaturation) {
    EXPECT_EQ(text::RoundEven(0.5), 0.0);
    EXPECT_EQ(text::RoundEven(1.5), 2.0);
    EXPECT_EQ(text::RoundEven(2.5), 2.0);
    EXPECT_EQ(text::RoundEven(3.5), 4.0);
    EXPECT_EQ(text::RoundEven(-0.5), 0.0);
    EXPECT_EQ(text::RoundEven(-1.5), -2.0);
    EXPECT_EQ(text::RoundEven(-2.5), -2.0);
    EXPECT_EQ(text::RoundEven(2.4999), 2.0);
    EXPECT_EQ(text::RoundEven(2.5001), 3.0);
    EXPECT_EQ(text::RoundEven(-2.6), -3.0);
    EXPECT_EQ(text::RoundEven(0.49999999999999994), 0.0); // floor(x + 0.5) gets this wrong
    EXPECT_EQ(text::RoundEven(4503599627370495.5), 4503599627370496.0);
    EXPECT_EQ(text::RoundEven(1e17), 1e17);

    EXPECT_EQ(text::CInt(2.5), 2);
    EXPECT_EQ(text::CInt(3.5), 4);
    EXPECT_EQ(text::CInt(-2.5), -2);
    EXPECT_EQ(text::CInt(-3.5), -4);
    EXPECT_EQ(text::CInt(-7.6), -8);
    EXPECT_EQ(text::CInt(32767.4), 32767);
    EXPECT_EQ(text::CInt(32767.5), 32767); // would be 32768
    EXPECT_EQ(text::CInt(40000), 32767);
    EXPECT_EQ(text::CInt(-32768.5), -32768);
    EXPECT_EQ(text::CInt(-40000), -32768);
    EXPECT_EQ(text::CInt(1e300), 32767);
    EXPECT_EQ(text::CInt(-std::numeric_limits<double>::infinity()), -32768);
    EXPECT_EQ(text::CInt(std::numeric_limits<double>::quiet_NaN()), 0);

    EXPECT_EQ(text::CLng(100000.5), 100000);
    EXPECT_EQ(text::CLng(100001.5), 100002);
    EXPECT_EQ(text::CLng(-7.5), -8);
    EXPECT_EQ(text::CLng(40000), 40000);
    EXPECT_EQ(text::CLng(2147483646.5), 2147483646);
    EXPECT_EQ(text::CLng(2147483647.5), 2147483647);
    EXPECT_EQ(text::CLng(3e9), 2147483647);
    EXPECT_EQ(text::CLng(-3e9), std::numeric_limits<int32_t>::min());
    EXPECT_EQ(text::CLng(std::numeric_limits<double>::quiet_NaN()), 0);

    EXPECT_EQ(text::Int(-2.5), -3.0);
    EXPECT_EQ(text::Int(2.5), 2.0);
    EXPECT_EQ(text::Int(-0.1), -1.0);
    EXPECT_EQ(text::Int(3.0), 3.0);
    EXPECT_EQ(text::Int(-3.0), -3.0);
    EXPECT_EQ(text::Fix(-2.5), -2.0);
    EXPECT_EQ(text::Fix(2.9), 2.0);
    EXPECT_EQ(text::Fix(-0.1), 0.0);
    EXPECT_EQ(text::Fix(-3.0), -3.0);
}

struct FormatCase {
    double value;
    const char16_t* pattern;
    const char* expected;
};

TEST(Format, EveryPatternWithTiesNegativesAndZero) {
    const FormatCase cases[] = {
        {12.4, u"0", "12"},
        {2.5, u"0", "3"},
        {-2.5, u"0", "-3"},
        {0.5, u"0", "1"},
        {0.49, u"0", "0"},
        {-0.4, u"0", "0"},
        {0.0, u"0", "0"},
        {-0.0, u"0", "0"},
        {1234567.5, u"0", "1234568"},
        {0.285 * 100.0, u"0", "29"}, // 28.499999999999996 in binary
        {1e20, u"0", "100000000000000000000"},

        {1.25, u"0.0", "1.3"},
        {-1.25, u"0.0", "-1.3"},
        {0.0, u"0.0", "0.0"},
        {0.04, u"0.0", "0.0"},
        {-0.04, u"0.0", "0.0"},
        {12.345, u"0.0", "12.3"},
        {9.96, u"0.0", "10.0"},
        {0.05, u"0.0", "0.1"},

        {1.005, u"0.00", "1.01"},
        {2.675, u"0.00", "2.68"},
        {0.995, u"0.00", "1.00"},
        {1.004, u"0.00", "1.00"},
        {-1.005, u"0.00", "-1.01"},
        {0.125, u"0.00", "0.13"},
        {3.0, u"0.00", "3.00"},
        {-0.004, u"0.00", "0.00"},
        {-0.005, u"0.00", "-0.01"},

        {1.0005, u"0.000", "1.001"},
        {3.14159, u"0.000", "3.142"},
        {-0.0004, u"0.000", "0.000"},
        {1234.5678, u"0.000", "1234.568"},

        {0.00005, u"0.0000", "0.0001"},
        {1e-5, u"0.0000", "0.0000"},
        {2.71828, u"0.0000", "2.7183"},
        {-1.23456, u"0.0000", "-1.2346"},

        {5.0, u"00", "05"},
        {0.0, u"00", "00"},
        {123.0, u"00", "123"},
        {-5.0, u"00", "-05"},
        {4.5, u"00", "05"},
        {9.5, u"00", "10"},
        {-0.2, u"00", "00"},

        {7.0, u"000", "007"},
        {1234.0, u"000", "1234"},
        {0.5, u"000", "001"},
        {-7.0, u"000", "-007"},

        {5.25, u"00.0", "05.3"},
        {123.45, u"00.0", "123.5"},
        {0.0, u"00.0", "00.0"},
        {-0.04, u"00.0", "00.0"},
        {9.96, u"00.0", "10.0"},
        {-3.35, u"00.0", "-03.4"},

        {5.5, u"0#.00", "05.50"},
        {123.456, u"0#.00", "123.46"},
        {0.0, u"0#.00", "00.00"},

        {0.5, u"#.##", ".5"},
        {3.0, u"#.##", "3."},
        {2.5, u"#.##", "2.5"},
        {1.005, u"#.##", "1.01"},
        {12.345, u"#.##", "12.35"},
        {0.999, u"#.##", "1."},
        {0.0, u"#.##", "."},
        {0.001, u"#.##", "."},
        {-0.5, u"#.##", "-.5"},
        {-0.001, u"#.##", "."},

        {0.04, u"##0.0", "0.0"},
        {1234.56, u"##0.0", "1234.6"},
        {-12.25, u"##0.0", "-12.3"},
        {0.05, u"##0.0", "0.1"},

        {1234567.0, u"#,###,##0", "1,234,567"},
        {0.0, u"#,###,##0", "0"},
        {100.0, u"#,###,##0", "100"},
        {999.5, u"#,###,##0", "1,000"},
        {1000.0, u"#,###,##0", "1,000"},
        {12345.0, u"#,###,##0", "12,345"},
        {-1234.5, u"#,###,##0", "-1,235"},
        {1234567890.0, u"#,###,##0", "1,234,567,890"},
        {-0.3, u"#,###,##0", "0"},

        {12.4, u"0 ", "12 "},
        {-2.5, u"0 ", "-3 "},
        {0.0, u"0 ", "0 "},
        {3.14, u"0.0 ft", "3.1 ft"},
        {-5.0, u"$0.00", "-$5.00"},
    };
    for (const auto& c : cases) {
        const QString pattern = QString::fromUtf16(c.pattern);
        EXPECT_EQ(text::Format(c.value, pattern), QString::fromLatin1(c.expected))
            << c.value << " with \"" << pattern.toStdString() << "\"";
    }
    // No digit placeholder at all: the plain text of the number.
    EXPECT_EQ(text::Format(1.5, u""), "1.5");
    EXPECT_EQ(text::Format(-2.25, u"abc"), "-2.25");
}

TEST(Format, TiesGoAwayFromZeroOnEveryEighth) {
    // k/8 is exact in binary and has at most three decimals, so every odd k
    // is a true tie at two decimals. Work the expected text out in integers:
    // thousandths k * 125, rounded half up to hundredths.
    for (int k = 0; k <= 4000; ++k) {
        const long long hundredths = (k * 125LL + 5) / 10;
        const QString magnitude = QString::number(hundredths / 100) + u'.' +
                                  QString::number(hundredths % 100).rightJustified(2, u'0');
        const double v = k / 8.0;
        ASSERT_EQ(text::Format(v, u"0.00"), magnitude) << v;
        ASSERT_EQ(text::Format(-v, u"0.00"), (k == 0 ? QString() : QStringLiteral("-")) + magnitude)
            << -v;
        // Halves at no decimals.
        const long long units = (k * 5LL + 5) / 10; // k/2 rounded half up
        ASSERT_EQ(text::Format(k / 2.0, u"0"), QString::number(units)) << k / 2.0;
    }
}

} // namespace
