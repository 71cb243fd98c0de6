#pragma once
// The serial port numbers 1 to 20 that the scans walk, mapped onto this
// machine's serial devices. This is the one place that decides the map:
//   USB adapters first (/dev/ttyUSB0, 1, ...), then USB modems
//   (/dev/ttyACM0, ...), then the board's own ports (/dev/ttyS0, ...),
//   each group in numeric order, numbered from 1 in that order; only
//   devices that exist are counted, so an adapter plugged in later moves
//   the on-board ports up but never the adapters.
// A number may be placed by hand on any device (a pseudo-terminal in the
// tests, a fixed adapter on a rig): a placed number wins over the scan.

#include <QString>
#include <map>

namespace platform {

class PortMap {
  public:
    static constexpr int kPorts = 20;
    // The device for a port number, or empty when the number has none.
    QString device(int number) const;
    void place(int number, const QString& path) { placed_[number] = path; }
    void unplace(int number) { placed_.erase(number); }
    // Walk /dev only for the numbers nobody placed; false in tests that want
    // nothing but their own devices.
    void setScanDevices(bool on) { scan_ = on; }

  private:
    std::map<int, QString> placed_;
    bool scan_ = true;
};

} // namespace platform
