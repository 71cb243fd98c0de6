#include "simulator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpServer>

namespace testkit {

quint16 FreePort() {
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

void Pump(int ms) {
    PumpUntil(ms, [] { return false; });
}

bool PumpUntil(int ms, const std::function<bool()>& done) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms) {
        if (done()) return true;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return done();
}

QString SimPath() {
    return QStringLiteral(GASCHART_BINARY_DIR "/kettlewick-sim");
}

QString EdrSimPath() {
    return QStringLiteral(GASCHART_BINARY_DIR "/edr-sim");
}

bool Simulator::start(const QStringList& args) {
    proc_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    proc_.start(program_, args + QStringList{"--log", log_});
    if (!proc_.waitForStarted(5000)) return false;
    // It says so once the wire is up.
    return PumpUntil(5000, [this] { return proc_.canReadLine() || count("READY") > 0; });
}

void Simulator::stop() {
    if (proc_.state() == QProcess::NotRunning) return;
    proc_.terminate();
    if (!proc_.waitForFinished(5000)) proc_.kill();
    proc_.waitForFinished(2000);
}

QStringList Simulator::lines(const QString& word) const {
    QStringList out;
    QFile f(log_);
    if (!f.open(QIODevice::ReadOnly)) return out;
    for (const QByteArray& line : f.readAll().split('\n'))
        if (line.startsWith(word.toLatin1())) out << QString::fromLatin1(line);
    return out;
}

std::set<long> Simulator::sent() const {
    std::set<long> out;
    for (const QString& l : lines("PACKET ")) out.insert(l.mid(7).toLong());
    return out;
}

} // namespace testkit
