#include "platform/tcp_link.h"

#include "platform/serial_link.h"

namespace platform {

void TcpLink::Connect() {
    errored_ = false;
    sock_.abort();
    QObject::disconnect(&sock_, nullptr, nullptr, nullptr);
    QObject::connect(&sock_, &QAbstractSocket::errorOccurred,
                     [this](QAbstractSocket::SocketError) { errored_ = true; });
    sock_.connectToHost(RemoteHost, static_cast<quint16>(RemotePort));
}

void TcpLink::Close() {
    errored_ = false;
    sock_.readAll();
    // A connection still being made, or one with nothing left to send, goes
    // at once; one with bytes still on their way out closes once they are out.
    if (sock_.state() == QAbstractSocket::ConnectedState && sock_.bytesToWrite() > 0) {
        sock_.disconnectFromHost();
        return;
    }
    sock_.abort();
}

int TcpLink::State() {
    switch (sock_.state()) {
    case QAbstractSocket::UnconnectedState:
        // What the instrument sent before it hung up is still to be read:
        // the link counts as up until the reader has taken it.
        if (sock_.bytesAvailable() > 0) return 7;
        return errored_ ? 9 : 0;
    case QAbstractSocket::HostLookupState:
        return 4;
    case QAbstractSocket::ConnectingState:
        return 6;
    case QAbstractSocket::ConnectedState:
        return 7;
    case QAbstractSocket::BoundState:
        return 1;
    case QAbstractSocket::ListeningState:
        return 2;
    case QAbstractSocket::ClosingState:
        return 8;
    }
    return 0;
}

LinkState TcpLink::state() {
    switch (State()) {
    case 0:
        return LinkState::Closed;
    case 7:
        return LinkState::Open;
    case 8:
        return LinkState::Closing;
    case 9:
        return LinkState::Failed;
    default:
        return LinkState::Opening;
    }
}

int TcpLink::BytesReceived() {
    if (sock_.state() == QAbstractSocket::ConnectedState) sock_.waitForReadyRead(0);
    return static_cast<int>(sock_.bytesAvailable());
}

QString TcpLink::GetData() {
    return bytesToText(sock_.readAll());
}

void TcpLink::SendData(const QString& text) {
    if (sock_.state() != QAbstractSocket::ConnectedState) return;
    sock_.write(textToBytes(text));
    sock_.flush();
}

} // namespace platform
