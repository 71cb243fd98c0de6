#pragma once
// A serial port with the operations the workstation uses on its serial
// links (MSComm1 to the instrument, MSComm2 to the rig's WITS): port number,
// settings text, open/close that reports an error number instead of
// throwing, input of all that waits, output of text.

#include "platform/instrument_link.h"
#include "platform/port_map.h"

#include <QSerialPort>
#include <QString>

namespace platform {

class SerialLink : public InstrumentLink {
  public:
    explicit SerialLink(const PortMap& map) : map_(map) {}

    int CommPort = 1;
    QString Settings = QStringLiteral("115200,n,8,1");
    int InputLen = 0;

    bool PortOpen() const { return port_.isOpen(); }
    // Opens or closes the port. Returns 0, or an error number when the port
    // can't be opened (8002 no such port, 8005 already open elsewhere); the
    // text of the last error is in ErrorText().
    int SetPortOpen(bool open);
    const QString& ErrorText() const { return error_; }

    int InBufferCount();
    QString Input();
    void Output(const QString& text);

    QString device() const { return port_.portName(); }

    // The one-wire view of the port: open is PortOpen True on CommPort.
    int open() override { return SetPortOpen(true); }
    void close() override { SetPortOpen(false); }
    LinkState state() override { return PortOpen() ? LinkState::Open : LinkState::Closed; }
    void write(const QString& text) override { Output(text); }
    int bytesArrived() override { return InBufferCount(); }
    QString read() override { return Input(); }
    bool isSession() const override { return false; }

  private:
    void closeIfGone();
    const PortMap& map_;
    QSerialPort port_;
    QString error_;
};

// Bytes travel as Latin-1 text: every byte value is one character, both ways.
inline QString bytesToText(const QByteArray& b) {
    return QString::fromLatin1(b);
}
inline QByteArray textToBytes(const QString& s) {
    return s.toLatin1();
}

} // namespace platform
