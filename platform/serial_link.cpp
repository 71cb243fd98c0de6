#include "platform/serial_link.h"

#include <QStringList>

namespace platform {

namespace {
bool applySettings(QSerialPort& port, const QString& settings) {
    // "115200,n,8,1": baud, parity, data bits, stop bits.
    const QStringList p = settings.split(',');
    if (p.size() < 4) return false;
    bool ok = false;
    const int baud = p[0].trimmed().toInt(&ok);
    if (!ok || baud <= 0) return false;
    port.setBaudRate(baud);
    const QString parity = p[1].trimmed().toLower();
    port.setParity(parity == "e"   ? QSerialPort::EvenParity
                   : parity == "o" ? QSerialPort::OddParity
                                   : QSerialPort::NoParity);
    const int bits = p[2].trimmed().toInt();
    port.setDataBits(bits == 7 ? QSerialPort::Data7 : QSerialPort::Data8);
    port.setStopBits(p[3].trimmed() == "2" ? QSerialPort::TwoStop : QSerialPort::OneStop);
    port.setFlowControl(QSerialPort::NoFlowControl);
    return true;
}
} // namespace

int SerialLink::SetPortOpen(bool open) {
    error_.clear();
    if (!open) {
        if (port_.isOpen()) port_.close();
        return 0;
    }
    if (port_.isOpen()) return 8005;
    const QString dev = map_.device(CommPort);
    if (dev.isEmpty()) {
        error_ = QStringLiteral("Invalid port number");
        return 8002;
    }
    port_.setPortName(dev);
    port_.clearError();
    if (!port_.open(QIODevice::ReadWrite)) {
        error_ = port_.errorString();
        return port_.error() == QSerialPort::PermissionError ? 8005 : 8002;
    }
    if (!applySettings(port_, Settings)) {
        port_.close();
        error_ = QStringLiteral("Invalid port settings");
        return 380;
    }
    return 0;
}

int SerialLink::InBufferCount() {
    if (!port_.isOpen()) return 0;
    // Pull in what the device holds without waiting for the event loop, so
    // a tick called straight after the bytes arrived sees them.
    port_.waitForReadyRead(0);
    const int waiting = static_cast<int>(port_.bytesAvailable());
    // Bytes that came in before the device went away are still handed on.
    if (waiting == 0) closeIfGone();
    return waiting;
}

QString SerialLink::Input() {
    if (!port_.isOpen()) return {};
    const QString got = bytesToText(port_.readAll());
    closeIfGone();
    return got;
}

void SerialLink::Output(const QString& text) {
    if (!port_.isOpen()) return;
    if (port_.write(textToBytes(text)) < 0) {
        closeIfGone();
        return;
    }
    port_.waitForBytesWritten(200);
    closeIfGone();
}

void SerialLink::closeIfGone() {
    // A device that went away reports a resource error (adapter pulled) or
    // a read error (the far end of a pseudo-terminal closed); anything it
    // still held has been read, so close and let the countdown bring the
    // rescan.
    const auto e = port_.error();
    if (port_.isOpen() && (e == QSerialPort::ResourceError || e == QSerialPort::ReadError)) {
        error_ = port_.errorString();
        port_.close();
    }
}

} // namespace platform
