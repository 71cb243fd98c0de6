#pragma once
// The simulated instrument: a packet every interval from the drilling model,
// and the console that answers the workstation's commands.

#include "channel.h"
#include "tools/common/drilling_model.h"

#include <QFile>
#include <QTimer>
#include <map>
#include <random>

namespace sim {

struct Settings {
    double interval = 6;    // seconds between packets
    int dropEvery = 0;      // drop the link after every N packets sent
    long packets = 0;       // stop sending after this many (0: never)
    bool garbage = false;   // noise and broken packets between good ones
    bool relayWits = false; // a "^" line after each packet
    bool twoWayLogin = false;
    int replyGapMs = 250; // the console answers one line at a time
    bool greet = false;   // "TCPCONNECT" to each new client before anything else
    // The instrument's own data file: one "@" line per sample taken. Empty:
    // kept in memory only. history: samples taken before the start.
    QString dataPath;
    int history = 0;
    // A transfer of the data file stops once half way for this many seconds.
    double transferPause = 0;
    QString logPath;
    drill::Options model;
};

class Instrument {
  public:
    Instrument(const Settings& s, Channel& channel);
    void start();

    // One line of the log file, also used by the channel's notes.
    void note(const QString& line);

  private:
    void sendPacket();
    void sendGarbage();
    void received(const QByteArray& bytes);
    void handleLine(const QString& line);
    void reply(const QString& line);
    void sendNextReply();
    void checkLagDepth(const QString& line);
    bool validKeyBlock(const QString& line) const;
    // Keeps a sample in the data file.
    void store(const drill::Sample& sample);
    void startTransfer();
    void sendTransferChunk();

    Settings s_;
    Channel& ch_;
    drill::Model model_;
    QTimer packetTimer_;
    QTimer greetTimer_;
    QTimer replyTimer_;
    QStringList replies_;
    QFile log_;
    std::mt19937 noise_;

    QByteArray pending_;
    bool echo_ = true;
    bool twoWay_ = false;
    long sent_ = 0;
    long keepAlives_ = 0;
    QString jobNumber_ = QStringLiteral("1001");
    std::map<int, int> registers_;

    QStringList data_;
    QStringList transfer_;
    qsizetype transferAt_ = 0;
    bool paused_ = false;
    QTimer transferTimer_;
};

} // namespace sim
