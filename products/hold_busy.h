#pragma once
// The database busy flag for the length of a file run. The file jobs take
// the flag whoever holds it (a file asked for by hand is written even while
// the chart is reading) and give back what they found, so a job that held it
// before still holds it after.

namespace products {

class HoldBusy {
  public:
    explicit HoldBusy(bool& flag) : flag_(flag), was_(flag) { flag_ = true; }
    ~HoldBusy() { flag_ = was_; }
    HoldBusy(const HoldBusy&) = delete;
    HoldBusy& operator=(const HoldBusy&) = delete;

  private:
    bool& flag_;
    bool was_;
};

} // namespace products
