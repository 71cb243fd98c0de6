// Date and time text: the instrument forms, the program's renderings and the
// job file's ISO form.

#include "text/datetime.h"

#include <gtest/gtest.h>

namespace {

struct DateCase {
    const char* text;
    int y, m, d;
};

TEST(ParseDate, EveryAcceptedForm) {
    // One of each form; two-digit years pivot between 69 and 70.
    const DateCase cases[] = {
        {"1/5/2024", 2024, 1, 5},   {"01/05/24", 2024, 1, 5},     {"3/4/69", 2069, 3, 4},
        {"3/4/70", 1970, 3, 4},     {"2024/01/05", 2024, 1, 5},   {"2024-12-31", 2024, 12, 31},
        {"2024/jan/5", 2024, 1, 5}, {"05-JAN-2024", 2024, 1, 5},  {"17  sep   2003", 2003, 9, 17},
        {"5-Dec-85", 1985, 12, 5},  {"29-Feb-2024", 2024, 2, 29}, {"\t2024-12-31 ", 2024, 12, 31},
    };
    for (const auto& c : cases) {
        const auto d = text::ParseDate(QString::fromLatin1(c.text));
        ASSERT_TRUE(d.has_value()) << c.text;
        EXPECT_EQ(*d, QDate(c.y, c.m, c.d)) << c.text;
    }
}

TEST(ParseDate, RejectsEverythingElse) {
    // clang-format off
    const char* bad[] = {
        "",           "13/1/2024",   "1/32/2024",   "2/29/2023",      "1900-02-29",
        "2024/01-05", "1/5",         "1/5/202",     "123/4/2024",     "2024-Jan-05",
        "Jan 5 2024", "5 Jan 24",    "5/Jan/2024",  "2024/01/05x",    "1-5-2024",
        "5-Foo-2024", "1 / 5 / 2024", "20240105",   "\xef\xbc\x91/5/2024"};
    // clang-format on
    for (const char* s : bad) EXPECT_FALSE(text::ParseDate(QString::fromUtf8(s)).has_value()) << s;
}

TEST(ParseTime, TwelveAndTwentyFourHourFormsAndBadTexts) {
    struct TimeCase {
        const char* text;
        int h, m, s;
    };
    const TimeCase good[] = {
        {"10:30:15", 10, 30, 15}, {"9:05", 9, 5, 0},           {"12:00 AM", 0, 0, 0},
        {"12:00 PM", 12, 0, 0},   {"11:59:59 pm", 23, 59, 59}, {"7:45AM", 7, 45, 0},
        {" 10:30 ", 10, 30, 0},   {"6:07:08  PM", 18, 7, 8},
    };
    for (const auto& c : good) {
        const auto t = text::ParseTime(QString::fromLatin1(c.text));
        ASSERT_TRUE(t.has_value()) << c.text;
        EXPECT_EQ(*t, QTime(c.h, c.m, c.s)) << c.text;
    }

    const char* bad[] = {
        "",      "24:00",  "12:60",       "12:00:60",   "13:00 PM", "0:30 AM",
        "12:5",  "123:00", "12:00:00:00", "12:00 XM",   ":30",      "10:30 PM extra",
        "1O:30", "-1:00",  "10:30 AM PM", "12:00:00.5",
    };
    for (const char* s : bad) EXPECT_FALSE(text::ParseTime(QString::fromLatin1(s))) << s;
}

TEST(ParseDateTime, DateThenTimeWithBlanksBetween) {
    struct Case {
        const char* text;
        QDateTime expected;
    };
    const Case good[] = {
        {"1/5/2024 10:30:15", QDateTime(QDate(2024, 1, 5), QTime(10, 30, 15))},
        {"5 Jan 2024 1:15 PM", QDateTime(QDate(2024, 1, 5), QTime(13, 15))},
        {"2024-01-05   23:59", QDateTime(QDate(2024, 1, 5), QTime(23, 59))},
        {" 05-jan-24\t7:00 am ", QDateTime(QDate(2024, 1, 5), QTime(7, 0))},
        {"2024/Jan/05 00:00:00", QDateTime(QDate(2024, 1, 5), QTime(0, 0))},
        {"12/31/99 12:00 AM", QDateTime(QDate(1999, 12, 31), QTime(0, 0))},
    };
    for (const auto& c : good) {
        const auto dt = text::ParseDateTime(QString::fromLatin1(c.text));
        ASSERT_TRUE(dt.has_value()) << c.text;
        EXPECT_EQ(*dt, c.expected) << c.text;
    }

    // clang-format off
    const char* bad[] = {
        "",                 "1/5/2024",        "10:30",                "1/5/2024 25:00",
        "13/5/2024 10:00",  "1/5/2024T10:00",  "1/5/2024 10:00 PM PM", "10:30 1/5/2024",
        "1/5/2024 10:30 x", "5 Jan 2024",      "2/30/2024 10:00:00"};
    // clang-format on
    for (const char* s : bad) EXPECT_FALSE(text::ParseDateTime(QString::fromLatin1(s))) << s;
}

TEST(ShortForms, DateTimeAndGeneral) {
    EXPECT_EQ(text::ShortDate(QDate(999, 12, 31)), "12/31/0999");
    EXPECT_EQ(text::ShortTime(QTime(0, 0, 0, 999)), "00:00:00");
    EXPECT_EQ(text::GeneralDate(QDateTime(QDate(2024, 1, 5), QTime(23, 0, 0))),
              "01/05/2024 23:00:00");
    EXPECT_EQ(text::GeneralDate(QDateTime()), "");
}

TEST(FormatDate, ThePatternsOfTheProgram) {
    const QDateTime dt(QDate(2024, 3, 7), QTime(14, 5, 9));
    struct Case {
        const char16_t* pattern;
        const char* expected;
    };
    // clang-format off
    const Case cases[] = {
        {u"MM/DD/YYYY", "03/07/2024"},   {u"YYYY/MMM/DD", "2024/Mar/07"}, {u"HH:NN", "14:05"},
        {u"DD-MMM-YYYY", "07-Mar-2024"}, {u"YYYY/MM/DD", "2024/03/07"},   {u"HH:MM", "14:05"},
        {u"YYYYMMDD", "20240307"},       {u"HHMMSS", "140509"},           {u"HHMM", "1405"},
        {u"HH:MM:SS", "14:05:09"},       {u"DD.MM.YY", "07.03.24"},       {u"MM:SS", "05:09"},
        {u"MM-DD HH", "03-07 14"},       {u"at HH:MM", "at 14:05"},       {u"", ""},
        {u"MM/DD/YYYY HH:MM:SS", "03/07/2024 14:05:09"},
        {u"yyyy-mm-dd hh:nn:ss", "2024-03-07 14:05:09"},
        {u"YYYY-MM-DDTHH:MM:SS", "2024-03-07T14:05:09"}};
    // clang-format on
    for (const auto& c : cases) {
        const QString pattern = QString::fromUtf16(c.pattern);
        EXPECT_EQ(text::FormatDate(dt, pattern), QString::fromLatin1(c.expected))
            << pattern.toStdString();
    }

    EXPECT_EQ(text::FormatDate(QDateTime(QDate(2009, 11, 30), QTime(0, 0)), u"YY YYYY"), "09 2009");
    EXPECT_EQ(text::FormatDate(QDateTime(), u"YYYY"), "");
}

TEST(Iso, WritesAndReadsTheJobFileForm) {
    const QDateTime dt(QDate(2024, 3, 7), QTime(14, 5, 9));
    EXPECT_EQ(text::IsoDateTime(dt), "2024-03-07 14:05:09");
    EXPECT_EQ(text::IsoDateTime(QDateTime(QDate(2024, 3, 7), QTime(14, 5, 9, 999))),
              "2024-03-07 14:05:09");
    EXPECT_EQ(text::IsoDateTime(QDateTime()), "");

    EXPECT_EQ(text::FromIso("2024-03-07 14:05:09"), dt);
    EXPECT_EQ(text::FromIso("2024-03-07T14:05:09"), dt);
    EXPECT_EQ(text::FromIso("2024-03-07 14:05:09.999"), dt);
    EXPECT_EQ(text::FromIso("2024-03-07T14:05:09.123456789012"), dt);
    EXPECT_EQ(text::FromIso("2024-03-07"), QDateTime(QDate(2024, 3, 7), QTime(0, 0)));

    // clang-format off
    const char* bad[] = {
        "",                     "2024-3-07 14:05:09",   "2024-03-07  14:05:09", "2024-03-07x",
        "2024-02-30 00:00:00",  "2024-03-07 24:00:00",  "2024-03-07 14:60:00",  "2024-03-07 14:05",
        "2024-03-07 14:05:09Z", "2024-03-07 14:05:09.", "03/07/2024 14:05:09",
        "2024/03/07 14:05:09"};
    // clang-format on
    for (const char* s : bad) EXPECT_FALSE(text::FromIso(QString::fromLatin1(s))) << s;
}

TEST(Iso, EveryRenderingReadsBack) {
    // Walk a few years by odd steps so every month, day count and hour shows up.
    QDate day(1998, 12, 31);
    int seconds = 0;
    for (int k = 0; k < 3000; ++k) {
        day = day.addDays(1 + k % 3);
        seconds = (seconds + 7919) % 86400;
        const QDateTime dt(day, QTime(0, 0).addSecs(seconds));

        EXPECT_EQ(text::FromIso(text::IsoDateTime(dt)), dt);
        EXPECT_EQ(text::ParseDateTime(text::GeneralDate(dt)), dt);
        EXPECT_EQ(text::ParseDateTime(text::FormatDate(dt, u"DD-MMM-YYYY HH:MM:SS")), dt);
        EXPECT_EQ(text::ParseDateTime(text::FormatDate(dt, u"YYYY/MMM/DD HH:MM:SS")), dt);
        EXPECT_EQ(text::ParseDate(text::FormatDate(dt, u"YYYY-MM-DD")), dt.date());
        EXPECT_EQ(text::ParseTime(text::FormatDate(dt, u"HH:NN:SS")), dt.time());
    }
}

} // namespace
