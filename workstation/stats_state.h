#pragma once
// What the statistics report keeps between its runs. The countdown itself
// sits with the kept settings (stats_countdown), since the configuration file
// sets it from the stored minutes.

namespace stats {

struct StatsState {
    // A report is being built: the countdown that ends meanwhile waits for
    // it, so two runs never write the same file at once.
    bool running = false;
    // The next run was asked for with cmd_calculate_stats: its information
    // box stays up when it is done, as for every job started by hand.
    bool byHand = false;
};

} // namespace stats
