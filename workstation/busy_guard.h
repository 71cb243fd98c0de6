#pragma once
// Holds a busy flag (Gdb_busy, Gchart_busy) for the life of a job. A job
// that finds the flag up already returns at once; whatever way the job
// ends, an exception included, the flag comes down with the guard.

namespace station {

class BusyFlag {
  public:
    // Always: the job runs whoever holds the flag (the open of the shared
    // set does), and lets it down at its end all the same.
    // Borrow: the job runs whoever holds the flag (a file asked for by hand
    // is written even while the chart reads) and gives back what it found,
    // so a job that held the flag before still holds it after.
    enum Mode { IfFree, Always, Borrow };
    explicit BusyFlag(bool& flag, Mode mode = IfFree)
        : flag_(flag), held_(mode != IfFree || !flag), after_(mode == Borrow && flag) {
        if (held_) flag_ = true;
    }
    ~BusyFlag() {
        if (held_) flag_ = after_;
    }
    BusyFlag(const BusyFlag&) = delete;
    BusyFlag& operator=(const BusyFlag&) = delete;
    // False: someone else holds the flag and the job must not run.
    explicit operator bool() const { return held_; }
    // Lets the flag down before the guard goes, as a job does that ends by
    // handing over to another that takes the flag itself.
    void release() {
        if (held_) flag_ = after_;
        held_ = false;
    }

  private:
    bool& flag_;
    bool held_;
    bool after_;
};

} // namespace station
