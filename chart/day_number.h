#pragma once
// Record times as day numbers (days from 30 December 1899, the fraction the
// time of day), read straight from the text the file keeps: the chart reads
// a time on every row and must not ask the system for its time zone each
// time.

#include "db/variant.h"

namespace chart {

// The day number of a DT field; 0 for Null or anything that is no date.
double DayNumber(const db::Variant& v);
// Whole minutes from one day number to a later one, counted as minute
// boundaries crossed.
double MinutesBetween(double older, double newer);

} // namespace chart
