#pragma once
// What every fuzz target shares: one workstation over a temporary program
// folder, built on the first input and kept for the whole run, so an input
// costs only the work of the reader under test.

#include "workstation/workstation.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace fuzzkit {

// The workstation of this run. The first call makes the Qt application
// object (offscreen), the program folder and, when job is true, a blank job
// in DB_CUE named in txt_db_path with the live writer's connection opened
// without waiting on the disk's flushes.
Workstation& Station(bool job);

// The input split into pieces the way bytes arrive on a wire, a piece at
// most `longest` bytes: the piece lengths are read from the tail of the
// input and the stream from its head, so a plain text seed still reads as
// the text it is.
std::vector<QByteArray> Pieces(const uint8_t* data, size_t size, int longest);

// Writes bytes to a file of the program folder, replacing what was there.
void WriteFile(const Workstation& ws, const QString& name, const QByteArray& bytes);

} // namespace fuzzkit
