#pragma once
// The instrument's Ethernet link (Winsock_ombri): remote host and port, the
// connection state as a number 0..9, bytes received, get and send data.

#include "platform/instrument_link.h"

#include <QString>
#include <QTcpSocket>

namespace platform {

class TcpLink : public InstrumentLink {
  public:
    QString RemoteHost;
    int RemotePort = 0;
    int LocalPort = 0;

    void Connect();
    // A close lets what is still on its way out go first: while it goes the
    // state is 8, closing. Unread input is dropped.
    void Close();
    // 0 closed, 1 open, 2 listening, 3 pending, 4 resolving, 5 resolved,
    // 6 connecting, 7 connected, 8 closing, 9 error.
    int State();
    int BytesReceived();
    QString GetData();
    void SendData(const QString& text);

    // The one-wire view of the socket: open is Connect to RemoteHost and
    // RemotePort, and open means State 7.
    int open() override {
        Connect();
        return 0;
    }
    void close() override { Close(); }
    LinkState state() override;
    void write(const QString& text) override { SendData(text); }
    int bytesArrived() override { return BytesReceived(); }
    QString read() override { return GetData(); }
    bool isSession() const override { return true; }

  private:
    QTcpSocket sock_;
    bool errored_ = false;
};

} // namespace platform
