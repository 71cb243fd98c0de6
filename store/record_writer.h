#pragma once
// The one routine that turns the newest packet into a row of the job.

class Workstation;

namespace store {

bool SaveKWData(Workstation& ws);

} // namespace store
