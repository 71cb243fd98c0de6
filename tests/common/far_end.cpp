#include "far_end.h"

#include "acquisition/link.h"
#include "simulator.h"

namespace testkit {

FarEnd::FarEnd() {
    server.listen(QHostAddress::LocalHost, 0);
    QObject::connect(&server, &QTcpServer::newConnection, [this] {
        peer = server.nextPendingConnection();
        QObject::connect(peer, &QTcpSocket::readyRead, [this] { got += peer->readAll(); });
    });
}

bool FarEnd::attach(Workstation& ws) {
    ws.Winsock_ombri.RemoteHost = QStringLiteral("127.0.0.1");
    ws.Winsock_ombri.RemotePort = server.serverPort();
    ws.Winsock_ombri.Connect();
    const bool up = PumpUntil(5000, [&] { return ws.Winsock_ombri.State() == 7 && peer; });
    acq::Winsock_state(ws);
    return up;
}

bool FarEnd::receive(const std::function<bool(const QByteArray&)>& done) {
    return PumpUntil(3000, [&] { return done(got); });
}

void FarEnd::send(const QByteArray& line) {
    peer->write(line);
    peer->flush();
}

} // namespace testkit
