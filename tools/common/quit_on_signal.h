#pragma once

// A stop request (SIGTERM, SIGINT) ends the simulator's event loop normally,
// so what it opened (a pseudo-terminal's link, a log) is closed on the way
// out. Call once, after the QCoreApplication is made.
void QuitOnStopSignal();
