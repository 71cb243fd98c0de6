#pragma once
// What the geolograph commands share: the chart's dynaset made ready and
// placed on a chosen record, the run of one command under Gdb_busy, and the
// whole-foot reading of a depth.

#include "db/recordset.h"
#include "store/edit_transaction.h"

#include <QString>
#include <cstdint>
#include <functional>

class Workstation;

namespace depth::geo {

// The ID the chart drew at canvas row y; 0 for an empty or impossible row.
int32_t IdAtRow(const Workstation& ws, double y);
// The integer part of a depth, sign dropped: a tick (negative) stands for
// the same foot as the plain depth.
int32_t Foot(double depth);
// The number of a field, 0 for Null.
double Num(const db::Recordset& rs, const char* field);
// Puts rs on the record with this ID: first by position (IDs run 1, 2, 3 in
// packet order), then step by step until the ID fits or an end is reached.
void Locate(db::Recordset& rs, int32_t id);
// The depth array slot of a foot let go: its closed rate is no longer true.
void ForgetFoot(Workstation& ws, double depth);

// One command on the shared set. Refused (false, nothing done) while the
// data base is busy or the shared set can't be had. Otherwise `body` runs
// under Gdb_busy inside one transaction, on a dynaset of its own read afresh
// (it becomes the chart's afterwards); a failure rolls all of it back and is
// told with `prefix`. A body that walks many records calls edit.beat()
// between them: the loop then runs inside the transaction, and the chart,
// which may draw meanwhile, reads through its own dynaset, not the body's.
// Afterwards the selection is cleared, the refresh countdown restarted and
// the chart's dynaset put back where it stood. `step` is the body's progress
// number for the report.
using Body = std::function<void(db::Recordset&, int& step, store::EditTransaction& edit)>;
bool Run(Workstation& ws, const QString& prefix, const Body& body);

// Positions (in the dynaset) of the two selected rows, lower first; false
// when there is no selection or a row is empty.
bool Selection(Workstation& ws, db::Recordset& rs, int32_t& first, int32_t& last);

// The depth arrays and the chart brought up to date over a stretch.
void Refresh(Workstation& ws, int32_t first, int32_t last);

} // namespace depth::geo
