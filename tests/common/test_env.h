#pragma once
// What every test program sets before it builds its Qt application: the
// offscreen platform unless a display is asked for, and a private runtime
// folder that keeps Qt quiet about a missing one.

namespace testkit {

void PrepareTestEnvironment();

} // namespace testkit
