// A pseudo-terminal of the simulator's own, with a symbolic link to its
// slave side that the workstation opens as a serial port. Dropping it makes
// the port vanish: the terminal is closed and a new one appears at the same
// link a moment later, as a USB adapter pulled and plugged back would.
#include "channel.h"

#include <QFile>
#include <QTimer>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace sim {

namespace {

constexpr int kPollMs = 20;
constexpr int kAbsentMs = 1500;

class PtyChannel : public Channel {
  public:
    explicit PtyChannel(QString link) : link_(std::move(link)) {
        QObject::connect(&poll_, &QTimer::timeout, [this] { service(); });
    }
    ~PtyChannel() override { closeTerminal(); }

    bool start(QString& error) override {
        if (!openTerminal(error)) return false;
        poll_.start(kPollMs);
        return true;
    }
    bool connected() const override { return master_ >= 0 && heard_; }
    void write(const QByteArray& bytes) override {
        if (master_ < 0) return;
        qsizetype done = 0;
        while (done < bytes.size()) {
            const ssize_t n =
                ::write(master_, bytes.constData() + done, size_t(bytes.size() - done));
            if (n <= 0) break; // a full terminal drops the rest, as a real line would
            done += n;
        }
    }
    void drop() override {
        closeTerminal();
        QTimer::singleShot(kAbsentMs, [this] {
            QString error;
            if (!openTerminal(error) && onNote) onNote("PTY " + error);
        });
    }
    bool echoes() const override { return true; }

  private:
    bool openTerminal(QString& error) {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) {
            error = QString::fromLocal8Bit(strerror(errno));
            closeTerminal();
            return false;
        }
        const char* slave = ::ptsname(master_);
        if (!slave) {
            error = QStringLiteral("no slave name");
            closeTerminal();
            return false;
        }
        // Raw from the first byte: no echo or line editing before the
        // workstation sets the port up itself.
        const int s = ::open(slave, O_RDWR | O_NOCTTY);
        if (s >= 0) {
            termios t{};
            if (::tcgetattr(s, &t) == 0) {
                ::cfmakeraw(&t);
                ::cfsetspeed(&t, B115200);
                ::tcsetattr(s, TCSANOW, &t);
            }
            ::close(s);
        }
        QFile::remove(link_);
        if (!QFile::link(QString::fromLocal8Bit(slave), link_)) {
            error = "cannot make the link " + link_;
            closeTerminal();
            return false;
        }
        heard_ = false;
        return true;
    }
    void closeTerminal() {
        if (master_ >= 0) ::close(master_);
        master_ = -1;
        heard_ = false;
        QFile::remove(link_);
    }
    // With nobody holding the slave side open, the master reports a hang
    // up: that is how the simulator knows whether anyone listens.
    void service() {
        if (master_ < 0) return;
        pollfd p{master_, POLLIN, 0};
        if (::poll(&p, 1, 0) < 0) return;
        const bool open = !(p.revents & POLLHUP);
        if (open && !heard_) {
            heard_ = true;
            if (onConnect) onConnect();
        } else if (!open && heard_) {
            heard_ = false;
            if (onNote) onNote(QStringLiteral("CLOSED"));
        }
        if (!open || !(p.revents & POLLIN)) return;
        char buf[4096];
        const ssize_t n = ::read(master_, buf, sizeof buf);
        if (n > 0 && onData) onData(QByteArray(buf, int(n)));
    }

    QString link_;
    int master_ = -1;
    bool heard_ = false;
    QTimer poll_;
};

} // namespace

std::unique_ptr<Channel> MakePtyChannel(const QString& linkPath) {
    return std::make_unique<PtyChannel>(linkPath);
}

} // namespace sim
