#pragma once
// The stop the system asks for: SIGTERM when the computer shuts down, SIGHUP
// when the terminal that started the program goes, SIGINT for Ctrl+C. The
// signal only notes itself; the program's answer runs in the event loop,
// where it may close the job file as an exit does.

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace platform {

class StopSignals : public QObject {
  public:
    // One watcher per program; onStop is called once, with the signal.
    explicit StopSignals(std::function<void(int)> onStop);
    ~StopSignals() override;
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

  private:
    std::function<void(int)> onStop_;
    QSocketNotifier* notifier_ = nullptr;
    bool stopped_ = false;
};

} // namespace platform
