#pragma once
// The wire between the simulated instrument and the workstation: a TCP
// listener, a pseudo-terminal of its own, or a serial device opened by name.
// Each tells whether someone is there to hear, carries bytes both ways, and
// can be dropped the way a cable is pulled.

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

namespace sim {

class Channel {
  public:
    virtual ~Channel() = default;
    // False when the wire could not be set up at all.
    virtual bool start(QString& error) = 0;
    virtual bool connected() const = 0;
    virtual void write(const QByteArray& bytes) = 0;
    // The link goes away under the client's feet.
    virtual void drop() = 0;
    // A serial console echoes what is typed until told "ECHO OFF".
    virtual bool echoes() const = 0;

    std::function<void(const QByteArray&)> onData;
    std::function<void()> onConnect;
    std::function<void(const QString&)> onNote; // for the log
};

std::unique_ptr<Channel> MakeTcpChannel(quint16 port);
std::unique_ptr<Channel> MakePtyChannel(const QString& linkPath);
std::unique_ptr<Channel> MakeSerialChannel(const QString& device);

} // namespace sim
