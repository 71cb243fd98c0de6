#include "platform/stop_signals.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace platform {

namespace {

int g_pipe[2] = {-1, -1};
const int kSignals[] = {SIGTERM, SIGHUP, SIGINT};

void Note(int sig) {
    const char c = static_cast<char>(sig);
    // Nothing else is safe inside a signal handler; a full pipe already
    // holds a stop.
    [[maybe_unused]] const ssize_t n = ::write(g_pipe[0], &c, 1);
}

} // namespace

StopSignals::StopSignals(std::function<void(int)> onStop) : onStop_(std::move(onStop)) {
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_pipe) != 0) return;
    notifier_ = new QSocketNotifier(g_pipe[1], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        char c = 0;
        if (::read(g_pipe[1], &c, 1) != 1 || stopped_) return;
        stopped_ = true;
        onStop_(c);
    });
    struct sigaction sa = {};
    sa.sa_handler = Note;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    for (int sig : kSignals) sigaction(sig, &sa, nullptr);
}

StopSignals::~StopSignals() {
    for (int sig : kSignals) std::signal(sig, SIG_DFL);
    delete notifier_;
    ::close(g_pipe[0]);
    ::close(g_pipe[1]);
    g_pipe[0] = g_pipe[1] = -1;
}

} // namespace platform
