// edr-sim: a stand-in for the rig's electronic data recorder on a serial
// device (one end of a socat pseudo-terminal pair, or a real port). It
// streams WITS level 0 frames from the drilling model, answers the
// workstation's probe, records the frames of gas results the workstation
// sends back, and misbehaves on request for the tests.
#include "recorder.h"
#include "tools/common/quit_on_signal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QSerialPort>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("edr-sim"));
    QuitOnStopSignal();

    QCommandLineParser p;
    p.setApplicationDescription(QStringLiteral("Rig data recorder simulator (WITS level 0)"));
    p.addHelpOption();
    const QCommandLineOption serial("serial", "Open the serial DEVICE (a socat pty end).",
                                    "DEVICE");
    const QCommandLineOption baud("baud", "Baud rate of the device (default 9600).", "N", "9600");
    const QCommandLineOption rate("rate", "Frames a second (default 1).", "N", "1");
    const QCommandLineOption seed("seed", "Seed of the drilling model (default 1).", "N", "1");
    const QCommandLineOption depth("start-depth", "Depth to start at, feet (default 4500).", "FEET",
                                   "4500");
    const QCommandLineOption record("record", "Append every frame received to FILE.", "FILE");
    const QCommandLineOption log("log", "Append one line per event to FILE.", "FILE");
    const QCommandLineOption drop("drop-every", "Leave out every Nth frame.", "N", "0");
    const QCommandLineOption garbage("garbage", "Send noise lines and half frames between frames.");
    const QCommandLineOption silentAt("silent-at", "Go silent SECONDS into the run.", "SECONDS");
    const QCommandLineOption silentFor("silent-for", "Length of the silence (default 60).",
                                       "SECONDS", "60");
    const QCommandLineOption longLine("long-line-at",
                                      "After frame N send one line of 100,000 characters.", "N");
    p.addOptions({serial, baud, rate, seed, depth, record, log, drop, garbage, silentAt, silentFor,
                  longLine});
    p.process(app);

    edr::Settings s;
    bool ok = true;
    s.rate = p.value(rate).toDouble(&ok);
    if (!ok || s.rate <= 0 || s.rate > 1000) {
        std::fprintf(stderr, "edr-sim: --rate needs frames a second above 0 and up to 1000\n");
        return 2;
    }
    if (!p.isSet(serial)) {
        std::fprintf(stderr, "edr-sim: give --serial DEVICE\n");
        return 2;
    }
    s.model.seed = p.value(seed).toUInt();
    s.model.startDepth = p.value(depth).toDouble();
    const QDateTime now = QDateTime::currentDateTime();
    s.model.start = QDateTime(now.date(), QTime(now.time().hour(), now.time().minute(), 0));
    s.dropEvery = p.value(drop).toInt();
    s.garbage = p.isSet(garbage);
    if (p.isSet(silentAt)) s.silentAt = p.value(silentAt).toInt();
    s.silentFor = p.value(silentFor).toInt();
    if (p.isSet(longLine)) s.longLineAt = p.value(longLine).toInt();
    s.recordPath = p.value(record);
    s.logPath = p.value(log);

    QSerialPort port;
    port.setPortName(p.value(serial));
    if (!port.open(QIODevice::ReadWrite)) {
        std::fprintf(stderr, "edr-sim: %s: %s\n", qPrintable(p.value(serial)),
                     qPrintable(port.errorString()));
        return 1;
    }
    port.setBaudRate(p.value(baud).toInt());
    port.setDataBits(QSerialPort::Data8);
    port.setParity(QSerialPort::NoParity);
    port.setStopBits(QSerialPort::OneStop);
    port.setFlowControl(QSerialPort::NoFlowControl);

    edr::Recorder recorder(s, port);
    recorder.start();
    recorder.note(QStringLiteral("READY"));
    std::fprintf(stdout, "edr-sim ready\n");
    std::fflush(stdout);
    const int rc = app.exec();
    if (port.isOpen()) port.waitForBytesWritten(500);
    return rc;
}
