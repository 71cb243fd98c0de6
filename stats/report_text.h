#pragma once
// How the report writes its figures: durations, a day's figures and the
// tally's lines. Text only, no files and no records.

#include <QString>
#include <QStringList>
#include <cstdint>

namespace stats {

// Every record stands for six seconds, and a day is 14400 of them, whatever
// the instrument's real rate: the report's time figures are record counts.
inline constexpr int kSecondsPerRecord = 6;
inline constexpr int kRecordsPerDay = 14400;
inline constexpr int kSecondsPerDay = kSecondsPerRecord * kRecordsPerDay;

// Seconds as hours, minutes and seconds: "HH:MM:SS", hours past 99 in full.
// A negative count keeps its sign in each part ("-01:-05:00" for -300),
// which is what a day of more than 14400 records on bottom shows.
QString Duration(int64_t seconds);

} // namespace stats
