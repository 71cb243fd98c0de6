#pragma once
// Date and time text: what the instrument sends and what the program shows.
//
// Accepted instrument forms (date, one or more blanks, time), the one list:
//   dates   M/D/YYYY  MM/DD/YYYY  M/D/YY       (month first, as the instrument sends)
//           YYYY/MM/DD  YYYY-MM-DD  YYYY/MMM/DD
//           D-MMM-YYYY  D MMM YYYY  D-MMM-YY   (MMM: Jan..Dec, any case)
//   times   H:MM:SS  H:MM  HH:MM:SS  with an optional " AM"/" PM" (12 hour)
// Month and day take one or two digits in every form; the blanks inside
// "D MMM YYYY" and before AM/PM may be any run of spaces and tabs (none
// before AM/PM is fine too); AM/PM in any case, and with it the hour must be
// 1..12. Surrounding white space is ignored.
// Two-digit years are 2000 + YY below 70 and 1900 + YY otherwise. Anything
// else, or a date or time out of range (month 13, 25:00, Feb 30), fails.

#include <QDateTime>
#include <QString>
#include <optional>

namespace text {

std::optional<QDate> ParseDate(const QString& s);
std::optional<QTime> ParseTime(const QString& s);
// date + blanks + time as the instrument sends them; both parts required.
// The result is local wall-clock time, like every date-time of the program.
std::optional<QDateTime> ParseDateTime(const QString& s);

// The program's one rendering of "the system's short date", "short time" and
// "general date": MM/DD/YYYY, HH:MM:SS (24 hour) and both joined by a blank.
QString ShortDate(const QDate& d);
QString ShortTime(const QTime& t);
QString GeneralDate(const QDateTime& dt);

// A date-time rendered by a pattern of the program's own: "MM/DD/YYYY",
// "YYYY/MMM/DD", "YYYY/MM/DD", "HH:MM:SS", "HH:MM", "DD-MMM-YYYY" and so on.
// Letters, any case: YYYY YY MMM MM DD HH NN SS, others copied. MM is the
// minutes right after HH (or "HH:") and right before SS (or ":SS"), the month
// everywhere else; NN is always the minutes. An invalid date-time gives "".
QString FormatDate(const QDateTime& dt, QStringView pattern);

// ISO 8601 "YYYY-MM-DD HH:MM:SS": how a record's DT sits in the job file.
// FromIso also reads a 'T' between date and time, a fraction of a second
// (dropped) and the date alone (midnight).
QString IsoDateTime(const QDateTime& dt);
std::optional<QDateTime> FromIso(const QString& s);

} // namespace text
