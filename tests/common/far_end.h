#pragma once
// The instrument's end of the workstation's TCP link: a listener on
// 127.0.0.1 that keeps everything the workstation sends it.

#include "workstation/workstation.h"

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>

namespace testkit {

class FarEnd {
  public:
    FarEnd();
    // Points the workstation's socket here and connects it; true once both
    // ends are up and the workstation has taken the connected state.
    bool attach(Workstation& ws);
    // Runs the loop until what has arrived satisfies done, or 3 s pass.
    bool receive(const std::function<bool(const QByteArray&)>& done);
    // Sends a line as the instrument would.
    void send(const QByteArray& line);

    QTcpServer server;
    QTcpSocket* peer = nullptr;
    QByteArray got;
};

} // namespace testkit
