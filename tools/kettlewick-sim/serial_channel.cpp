// A serial device opened by name, such as one end of a socat pair. There is
// no telling whether the far end listens, so it always counts as connected
// while open; a drop is a pulled cable: silence for a while. A device that
// goes away is tried again every second.
#include "channel.h"

#include <QSerialPort>
#include <QTimer>

namespace sim {

namespace {

constexpr int kSilentMs = 1500;
constexpr int kRetryMs = 1000;

class SerialChannel : public Channel {
  public:
    explicit SerialChannel(const QString& device) {
        port_.setPortName(device);
        QObject::connect(&port_, &QSerialPort::readyRead, [this] {
            const QByteArray got = port_.readAll();
            if (!silent_ && onData) onData(got);
        });
        QObject::connect(&port_, &QSerialPort::errorOccurred,
                         [this](QSerialPort::SerialPortError e) {
                             if (e != QSerialPort::ResourceError && e != QSerialPort::ReadError)
                                 return;
                             if (onNote) onNote("DEVICE LOST " + port_.errorString());
                             port_.close();
                             QTimer::singleShot(kRetryMs, [this] { reopen(); });
                         });
    }

    ~SerialChannel() override {
        // What was logged as sent goes out before the port closes.
        if (port_.isOpen()) port_.waitForBytesWritten(1000);
    }

    bool start(QString& error) override {
        if (!open()) {
            error = port_.errorString();
            return false;
        }
        if (onConnect) onConnect();
        return true;
    }
    bool connected() const override { return port_.isOpen() && !silent_; }
    void write(const QByteArray& bytes) override {
        if (!connected()) return;
        port_.write(bytes);
        port_.flush();
    }
    void drop() override {
        silent_ = true;
        QTimer::singleShot(kSilentMs, [this] {
            silent_ = false;
            if (onConnect) onConnect();
        });
    }
    bool echoes() const override { return true; }

  private:
    bool open() {
        if (!port_.open(QIODevice::ReadWrite)) return false;
        port_.setBaudRate(115200);
        port_.setDataBits(QSerialPort::Data8);
        port_.setParity(QSerialPort::NoParity);
        port_.setStopBits(QSerialPort::OneStop);
        port_.setFlowControl(QSerialPort::NoFlowControl);
        return true;
    }
    void reopen() {
        port_.clearError();
        if (open()) {
            if (onConnect) onConnect();
        } else {
            QTimer::singleShot(kRetryMs, [this] { reopen(); });
        }
    }

    QSerialPort port_;
    bool silent_ = false;
};

} // namespace

std::unique_ptr<Channel> MakeSerialChannel(const QString& device) {
    return std::make_unique<SerialChannel>(device);
}

} // namespace sim
