#pragma once
// The instrument's Ethernet link (Winsock_ombri): remote host and port, the
// connection state as a number 0..9, bytes received, get and send data.

#include <QString>
#include <QTcpSocket>

namespace platform {

class TcpLink {
  public:
    QString RemoteHost;
    int RemotePort = 0;
    int LocalPort = 0;

    void Connect();
    void Close();
    // 0 closed, 1 open, 2 listening, 3 pending, 4 resolving, 5 resolved,
    // 6 connecting, 7 connected, 8 closing, 9 error.
    int State();
    int BytesReceived();
    QString GetData();
    void SendData(const QString& text);

  private:
    QTcpSocket sock_;
    bool errored_ = false;
};

} // namespace platform
