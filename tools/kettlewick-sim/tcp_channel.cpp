// Listens on 127.0.0.1; one client at a time. A new client takes the place
// of the old one, as the instrument's single console does.
#include "channel.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace sim {

namespace {

class TcpChannel : public Channel {
  public:
    explicit TcpChannel(quint16 port) : port_(port) {}
    ~TcpChannel() override {
        // A stop is a clean hang-up: what was logged as sent goes out first.
        if (!client_) return;
        client_->flush();
        client_->disconnectFromHost();
        if (client_ && client_->state() != QAbstractSocket::UnconnectedState)
            client_->waitForDisconnected(2000);
    }

    bool start(QString& error) override {
        QObject::connect(&server_, &QTcpServer::newConnection, [this] { accept(); });
        if (!server_.listen(QHostAddress::LocalHost, port_)) {
            error = server_.errorString();
            return false;
        }
        return true;
    }
    bool connected() const override {
        return client_ && client_->state() == QAbstractSocket::ConnectedState;
    }
    void write(const QByteArray& bytes) override {
        if (!connected()) return;
        client_->write(bytes);
        client_->flush();
    }
    void drop() override {
        if (!client_) return;
        // Everything written so far still goes out before the close.
        client_->disconnectFromHost();
        client_ = nullptr;
    }
    bool echoes() const override { return false; }

  private:
    void accept() {
        while (QTcpSocket* s = server_.nextPendingConnection()) {
            if (client_) {
                if (onNote) onNote(QStringLiteral("REPLACED"));
                client_->disconnectFromHost();
            }
            client_ = s;
            QObject::connect(s, &QTcpSocket::disconnected, s, &QObject::deleteLater);
            QObject::connect(s, &QTcpSocket::readyRead, [this, s] {
                const QByteArray got = s->readAll();
                if (s == client_ && onData) onData(got);
            });
            if (onConnect) onConnect();
        }
    }

    quint16 port_;
    QTcpServer server_;
    QPointer<QTcpSocket> client_;
};

} // namespace

std::unique_ptr<Channel> MakeTcpChannel(quint16 port) {
    return std::make_unique<TcpChannel>(port);
}

} // namespace sim
