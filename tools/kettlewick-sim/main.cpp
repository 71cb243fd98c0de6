// kettlewick-sim: a stand-in for the gas instrument on a TCP port, a
// pseudo-terminal or a serial device. It sends the drilling model's packets,
// answers the console commands, checks the lag depth lines that come back,
// and can misbehave on demand (dropped links, noise) for the tests.
#include "channel.h"
#include "instrument.h"
#include "text/datetime.h"
#include "tools/common/quit_on_signal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <cstdio>

namespace {

// The instrument's packet counter runs on from its last power-up; taking it
// from the clock keeps a restarted simulator from repeating numbers that a
// job already holds.
long ClockPacketNumber() {
    const QDateTime epoch(QDate(2020, 1, 1), QTime(0, 0));
    return long(epoch.secsTo(QDateTime::currentDateTime()) / 6);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kettlewick-sim"));
    QuitOnStopSignal();

    QCommandLineParser p;
    p.setApplicationDescription(QStringLiteral("Gas instrument simulator"));
    p.addHelpOption();
    const QCommandLineOption tcp("tcp", "Listen on 127.0.0.1:PORT.", "PORT");
    const QCommandLineOption pty("pty", "Make a pseudo-terminal, linked at PATH.", "PATH");
    const QCommandLineOption serial("serial", "Open an existing serial DEVICE.", "DEVICE");
    const QCommandLineOption interval("interval", "Seconds between packets (default 6).", "SECONDS",
                                      "6");
    const QCommandLineOption rate(
        "rate",
        "Run N times faster than the instrument: one packet every 6/N seconds of real time.", "N");
    const QCommandLineOption count("packets", "Stop sending after N packets (default: never).", "N",
                                   "0");
    const QCommandLineOption seed("seed", "Seed of the drilling model (default 1).", "N", "1");
    const QCommandLineOption depth("start-depth", "Depth to start at, feet (default 4500).", "FEET",
                                   "4500");
    const QCommandLineOption first("first-packet", "Number of the first packet.", "N");
    const QCommandLineOption start("start", "Time of the first packet, YYYY-MM-DD HH:MM:SS.",
                                   "TIME");
    const QCommandLineOption log("log", "Append one line per packet sent (and events) to FILE.",
                                 "FILE");
    const QCommandLineOption drop("drop-every", "Drop the link after every N packets.", "N", "0");
    const QCommandLineOption garbage("garbage", "Send noise and broken packets between good ones.");
    const QCommandLineOption wits("relay-wits", "Send a WITS line after each packet.");
    const QCommandLineOption login("two-way-login", "Accept a well-formed login block.");
    const QCommandLineOption gap("reply-gap", "Milliseconds between console answers (250).", "MS",
                                 "250");
    const QCommandLineOption greet("greet",
                                   "Announce each new TCP client with a TCPCONNECT line, as the "
                                   "instrument's network adapter does.");
    const QCommandLineOption dataFile(
        "data-file", "The instrument's own data file, served on TRANSFER KW_DATA.OMD.", "FILE");
    const QCommandLineOption history("history", "Samples taken before the start (default 0).", "N",
                                     "0");
    const QCommandLineOption pause("transfer-pause",
                                   "Stop half way through a transfer for SECONDS.", "SECONDS", "0");
    p.addOptions({tcp, pty,  serial,  interval, rate,  count, seed,  depth,    first,   start,
                  log, drop, garbage, wits,     login, gap,   greet, dataFile, history, pause});
    p.process(app);

    sim::Settings s;
    bool ok = true;
    s.interval = p.value(interval).toDouble(&ok);
    if (!ok || s.interval <= 0) {
        std::fprintf(stderr, "kettlewick-sim: --interval needs a number of seconds above 0\n");
        return 2;
    }
    if (p.isSet(rate)) {
        // The packets' own times still step six seconds: only the wall clock
        // runs faster.
        const double n = p.value(rate).toDouble(&ok);
        if (!ok || n <= 0) {
            std::fprintf(stderr, "kettlewick-sim: --rate needs a number above 0\n");
            return 2;
        }
        s.interval = 6 / n;
    }
    s.packets = std::max(0L, p.value(count).toLong());
    s.model.seed = p.value(seed).toUInt();
    s.model.startDepth = p.value(depth).toDouble();
    s.model.firstPacket = p.isSet(first) ? p.value(first).toLong() : ClockPacketNumber();
    if (p.isSet(start)) {
        auto t = text::FromIso(p.value(start));
        if (!t) {
            std::fprintf(stderr, "kettlewick-sim: --start needs YYYY-MM-DD HH:MM:SS\n");
            return 2;
        }
        s.model.start = *t;
    } else {
        QDateTime now = QDateTime::currentDateTime();
        s.model.start = QDateTime(
            now.date(), QTime(now.time().hour(), now.time().minute(), now.time().second()));
    }
    s.logPath = p.value(log);
    s.dropEvery = p.value(drop).toInt();
    s.garbage = p.isSet(garbage);
    s.relayWits = p.isSet(wits);
    s.twoWayLogin = p.isSet(login);
    s.replyGapMs = std::max(0, p.value(gap).toInt());
    s.greet = p.isSet(greet);
    s.dataPath = p.value(dataFile);
    s.history = std::max(0, p.value(history).toInt());
    s.transferPause = std::max(0.0, p.value(pause).toDouble());

    std::unique_ptr<sim::Channel> channel;
    if (p.isSet(tcp))
        channel = sim::MakeTcpChannel(quint16(p.value(tcp).toUInt()));
    else if (p.isSet(pty))
        channel = sim::MakePtyChannel(p.value(pty));
    else if (p.isSet(serial))
        channel = sim::MakeSerialChannel(p.value(serial));
    else {
        std::fprintf(stderr, "kettlewick-sim: give --tcp PORT, --pty PATH or --serial DEVICE\n");
        return 2;
    }

    sim::Instrument instrument(s, *channel);
    instrument.start();
    QString error;
    if (!channel->start(error)) {
        std::fprintf(stderr, "kettlewick-sim: %s\n", qPrintable(error));
        return 1;
    }
    instrument.note(QStringLiteral("READY"));
    std::fprintf(stdout, "kettlewick-sim ready\n");
    std::fflush(stdout);
    return app.exec();
}
