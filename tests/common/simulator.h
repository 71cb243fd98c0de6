#pragma once
// The instrument simulator as a real process, and the loop helpers the tests
// that talk to it share.

#include <QProcess>
#include <QString>
#include <QStringList>
#include <functional>
#include <set>

namespace testkit {

quint16 FreePort();
// Let the loop run for ms milliseconds (the timers that were started fire).
void Pump(int ms);
// Let the loop run until done() or ms have passed; the result of done().
bool PumpUntil(int ms, const std::function<bool()>& done);

QString SimPath();
// The rig data recorder simulator beside it.
QString EdrSimPath();

class Simulator {
  public:
    explicit Simulator(QString logPath, QString program = SimPath())
        : log_(std::move(logPath)), program_(std::move(program)) {}
    ~Simulator() { stop(); }
    // Starts it with args (and its log) and waits until its wire is up.
    bool start(const QStringList& args);
    // A polite stop: what was written still reaches the other end.
    void stop();
    // Lines of the simulator's log that start with the word.
    QStringList lines(const QString& word) const;
    int count(const QString& word) const { return static_cast<int>(lines(word).size()); }
    // Packet numbers the simulator put on the wire whole.
    std::set<long> sent() const;

  private:
    QString log_;
    QString program_;
    QProcess proc_;
};

} // namespace testkit
