#pragma once
// The one routine that turns the newest packet into a row of the job.

class Workstation;

namespace store {

// True when the row is stored, or held to be stored once an edit of the
// job ends (see record_writer.cpp).
bool SaveKWData(Workstation& ws);
// Writes the rows held during an edit, oldest first, each in a transaction
// of its own; nothing while an edit is still open.
void WriteHeldRows(Workstation& ws);

} // namespace store
