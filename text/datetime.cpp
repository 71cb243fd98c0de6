// Date and time text. Hand-written readers rather than QDateTime::fromString:
// the instrument forms are few and fixed, month names are English whatever
// the machine's locale, and anything outside the list must fail, not be
// guessed at.
//
// Parsed date-times are local wall-clock time, as every other date-time the
// program keeps.

#include "text/datetime.h"

#include <array>

namespace text {

namespace {

constexpr std::array<const char16_t*, 12> kMonths = {
    u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t';
}
bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// A reading position over one text. Every reader either consumes what it
// asked for and returns true, or leaves the position alone and returns false.
class Cursor {
  public:
    explicit Cursor(QStringView s) : s_(s) {}

    bool AtEnd() const { return i_ == s_.size(); }

    // A whole run of digits (the run is not cut short) of min..max digits.
    bool Number(int minDigits, int maxDigits, int* value, int* count = nullptr) {
        qsizetype j = i_;
        int v = 0;
        while (j < s_.size() && IsDigit(s_[j]) && j - i_ <= maxDigits) {
            v = v * 10 + (s_[j].unicode() - u'0');
            ++j;
        }
        const int n = static_cast<int>(j - i_);
        if (n < minDigits || n > maxDigits) return false;
        i_ = j;
        *value = v;
        if (count) *count = n;
        return true;
    }

    // Any run of digits, read past without a value; returns how many.
    int SkipDigits() {
        const qsizetype start = i_;
        while (i_ < s_.size() && IsDigit(s_[i_])) ++i_;
        return static_cast<int>(i_ - start);
    }

    bool Char(QChar c) {
        if (i_ < s_.size() && s_[i_] == c) {
            ++i_;
            return true;
        }
        return false;
    }

    // One or more blanks; with optional set, none is fine too.
    bool Blanks(bool optional = false) {
        const qsizetype start = i_;
        while (i_ < s_.size() && IsBlank(s_[i_])) ++i_;
        return optional || i_ > start;
    }

    // A three-letter English month name in any case, not followed by a letter.
    bool MonthName(int* month) {
        if (s_.size() - i_ < 3) return false;
        const QStringView word = s_.mid(i_, 3);
        if (i_ + 3 < s_.size() && s_[i_ + 3].isLetter()) return false;
        for (int m = 0; m < 12; ++m) {
            if (word.compare(QStringView(kMonths[m]), Qt::CaseInsensitive) == 0) {
                i_ += 3;
                *month = m + 1;
                return true;
            }
        }
        return false;
    }

    // "AM" or "PM" in any case: 0 none, 1 AM, 2 PM.
    int Meridiem() {
        if (s_.size() - i_ < 2) return 0;
        const QStringView word = s_.mid(i_, 2);
        int which = 0;
        if (word.compare(u"AM", Qt::CaseInsensitive) == 0) which = 1;
        if (word.compare(u"PM", Qt::CaseInsensitive) == 0) which = 2;
        if (which) i_ += 2;
        return which;
    }

  private:
    QStringView s_;
    qsizetype i_ = 0;
};

int FullYear(int year, int digits) {
    if (digits != 2) return year;
    return year < 70 ? 2000 + year : 1900 + year;
}

std::optional<QDate> MakeDate(int y, int m, int d) {
    const QDate date(y, m, d);
    if (!date.isValid()) return std::nullopt;
    return date;
}

std::optional<QDate> ReadDate(QStringView s) {
    Cursor c(s);
    int first = 0, firstDigits = 0;
    if (!c.Number(1, 4, &first, &firstDigits)) return std::nullopt;

    if (firstDigits == 4) {
        // YYYY/MM/DD, YYYY-MM-DD, YYYY/MMM/DD
        int month = 0, day = 0;
        if (c.Char(u'/')) {
            if (!c.Number(1, 2, &month) && !c.MonthName(&month)) return std::nullopt;
            if (!c.Char(u'/')) return std::nullopt;
        } else if (c.Char(u'-')) {
            if (!c.Number(1, 2, &month) || !c.Char(u'-')) return std::nullopt;
        } else {
            return std::nullopt;
        }
        if (!c.Number(1, 2, &day) || !c.AtEnd()) return std::nullopt;
        return MakeDate(first, month, day);
    }
    if (firstDigits > 2) return std::nullopt;

    int second = 0, year = 0, yearDigits = 0;
    if (c.Char(u'/')) {
        // M/D/YYYY, MM/DD/YYYY, M/D/YY: month first, as the instrument sends.
        if (!c.Number(1, 2, &second) || !c.Char(u'/')) return std::nullopt;
        if (!c.Number(2, 4, &year, &yearDigits) || yearDigits == 3 || !c.AtEnd())
            return std::nullopt;
        return MakeDate(FullYear(year, yearDigits), first, second);
    }
    if (c.Char(u'-')) {
        // D-MMM-YYYY, D-MMM-YY
        if (!c.MonthName(&second) || !c.Char(u'-')) return std::nullopt;
        if (!c.Number(2, 4, &year, &yearDigits) || yearDigits == 3 || !c.AtEnd())
            return std::nullopt;
        return MakeDate(FullYear(year, yearDigits), second, first);
    }
    if (c.Blanks()) {
        // D MMM YYYY
        if (!c.MonthName(&second) || !c.Blanks()) return std::nullopt;
        if (!c.Number(4, 4, &year) || !c.AtEnd()) return std::nullopt;
        return MakeDate(year, second, first);
    }
    return std::nullopt;
}

std::optional<QTime> ReadTime(QStringView s) {
    Cursor c(s);
    int h = 0, m = 0, sec = 0;
    if (!c.Number(1, 2, &h) || !c.Char(u':') || !c.Number(2, 2, &m)) return std::nullopt;
    if (c.Char(u':') && !c.Number(2, 2, &sec)) return std::nullopt;
    c.Blanks(true);
    const int meridiem = c.Meridiem();
    if (!c.AtEnd()) return std::nullopt;
    if (meridiem != 0) {
        // A 12 hour clock runs 12, 1 .. 11: there is no "0:30 PM" or "13:00 PM".
        if (h < 1 || h > 12) return std::nullopt;
        h %= 12;
        if (meridiem == 2) h += 12;
    }
    if (h > 23 || m > 59 || sec > 59) return std::nullopt;
    return QTime(h, m, sec);
}

QString Two(int v) {
    return QString::number(v).rightJustified(2, u'0');
}
QString Four(int v) {
    return QString::number(v).rightJustified(4, u'0');
}

bool StartsWith(QStringView s, qsizetype at, QStringView token) {
    return s.size() - at >= token.size() &&
           s.mid(at, token.size()).compare(token, Qt::CaseInsensitive) == 0;
}

} // namespace

std::optional<QDate> ParseDate(const QString& s) {
    return ReadDate(QStringView(s).trimmed());
}

std::optional<QTime> ParseTime(const QString& s) {
    return ReadTime(QStringView(s).trimmed());
}

std::optional<QDateTime> ParseDateTime(const QString& s) {
    // The date may hold blanks itself ("5 Jan 2024") and so may the time
    // ("10:30 PM"): try each run of blanks as the place where they meet.
    const QStringView t = QStringView(s).trimmed();
    for (qsizetype i = 0; i < t.size(); ++i) {
        if (!IsBlank(t[i])) continue;
        qsizetype j = i;
        while (j < t.size() && IsBlank(t[j])) ++j;
        const auto date = ReadDate(t.left(i));
        const auto time = date ? ReadTime(t.mid(j)) : std::nullopt;
        if (date && time) return QDateTime(*date, *time);
        i = j - 1;
    }
    return std::nullopt;
}

QString ShortDate(const QDate& d) {
    if (!d.isValid()) return {};
    return Two(d.month()) + u'/' + Two(d.day()) + u'/' + Four(d.year());
}

QString ShortTime(const QTime& t) {
    if (!t.isValid()) return {};
    return Two(t.hour()) + u':' + Two(t.minute()) + u':' + Two(t.second());
}

QString GeneralDate(const QDateTime& dt) {
    if (!dt.isValid()) return {};
    return ShortDate(dt.date()) + u' ' + ShortTime(dt.time());
}

// Tokens are matched longest first and in any case. "MM" is the month,
// except right after an hour ("HH:MM", "HHMM") or right before seconds
// ("MM:SS"), where it is the minutes, as the old runtime read it; "NN" is
// always the minutes. Everything else is copied as it stands.
QString FormatDate(const QDateTime& dt, QStringView pattern) {
    if (!dt.isValid()) return {};
    const QDate d = dt.date();
    const QTime t = dt.time();
    QString out;
    bool afterHour = false; // just wrote an hour, perhaps then a ':'
    qsizetype i = 0;
    while (i < pattern.size()) {
        if (StartsWith(pattern, i, u"YYYY")) {
            out += Four(d.year());
            i += 4;
            afterHour = false;
        } else if (StartsWith(pattern, i, u"YY")) {
            out += Two(d.year() % 100);
            i += 2;
            afterHour = false;
        } else if (StartsWith(pattern, i, u"MMM")) {
            out += QStringView(kMonths[d.month() - 1]);
            i += 3;
            afterHour = false;
        } else if (StartsWith(pattern, i, u"MM")) {
            qsizetype next = i + 2;
            if (next < pattern.size() && pattern[next] == u':') ++next;
            const bool beforeSeconds = StartsWith(pattern, next, u"SS");
            out += (afterHour || beforeSeconds) ? Two(t.minute()) : Two(d.month());
            i += 2;
            afterHour = false;
        } else if (StartsWith(pattern, i, u"NN")) {
            out += Two(t.minute());
            i += 2;
            afterHour = false;
        } else if (StartsWith(pattern, i, u"DD")) {
            out += Two(d.day());
            i += 2;
            afterHour = false;
        } else if (StartsWith(pattern, i, u"HH")) {
            out += Two(t.hour());
            i += 2;
            afterHour = true;
        } else if (StartsWith(pattern, i, u"SS")) {
            out += Two(t.second());
            i += 2;
            afterHour = false;
        } else {
            const bool colon = pattern[i] == u':';
            out += pattern[i];
            ++i;
            afterHour = afterHour && colon;
        }
    }
    return out;
}

QString IsoDateTime(const QDateTime& dt) {
    if (!dt.isValid()) return {};
    const QDate d = dt.date();
    return Four(d.year()) + u'-' + Two(d.month()) + u'-' + Two(d.day()) + u' ' +
           ShortTime(dt.time());
}

// "YYYY-MM-DD HH:MM:SS", also with a 'T' between, with a fraction of a
// second (dropped, not rounded), or the date alone (midnight), so a job
// written by another SQLite tool reads too.
std::optional<QDateTime> FromIso(const QString& s) {
    Cursor c(QStringView(s).trimmed());
    int y = 0, mo = 0, d = 0;
    if (!c.Number(4, 4, &y) || !c.Char(u'-') || !c.Number(2, 2, &mo) || !c.Char(u'-') ||
        !c.Number(2, 2, &d))
        return std::nullopt;
    const auto date = MakeDate(y, mo, d);
    if (!date) return std::nullopt;
    if (c.AtEnd()) return QDateTime(*date, QTime(0, 0));

    int h = 0, mi = 0, sec = 0;
    if (!c.Char(u' ') && !c.Char(u'T')) return std::nullopt;
    if (!c.Number(2, 2, &h) || !c.Char(u':') || !c.Number(2, 2, &mi) || !c.Char(u':') ||
        !c.Number(2, 2, &sec))
        return std::nullopt;
    if (c.Char(u'.') && c.SkipDigits() == 0) return std::nullopt;
    if (!c.AtEnd() || h > 23 || mi > 59 || sec > 59) return std::nullopt;
    return QDateTime(*date, QTime(h, mi, sec));
}

} // namespace text
