#pragma once
// The test station with a fixed clock, and the small builders the
// acquisition tests share.

#include "acquisition/main_loop.h"
#include "acquisition/parser.h"
#include "pty_pair.h"
#include "test_station.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

namespace acqtest {

using testkit::FixedNow;
using testkit::PtyPair;

class AcqTest : public ::testing::Test, protected testkit::Station {
  protected:
    // jobName: a blank job in DB_CUE for the tests that store rows.
    explicit AcqTest(const QString& jobName = {}) : testkit::Station(jobName) {
        ws.Now = [] { return FixedNow(); };
    }

    // Puts text behind what waits in the line buffer and runs one parse.
    void parse(const QString& text) {
        ws.packet.Gline_buffer += text;
        acq::Parse_Ombri_String(ws);
    }
    const QString& buffer() const { return ws.packet.Gline_buffer; }
    const QString& field(int i) const { return ws.packet.Gombri_data_array[i]; }
    // A button as the operator sees it: its caption and its colour.
    static QString look(const forms::Control& c) { return look(c.caption(), c.backColor()); }
    static QString look(const QString& caption, long colour) {
        return caption + " | " + QString::number(colour, 16);
    }
    // Lets the links deliver and runs the intake tick until done() holds or
    // ms milliseconds pass.
    bool intakeUntil(const std::function<bool()>& done, int ms = 5000) {
        QElapsedTimer limit;
        limit.start();
        while (limit.elapsed() < ms) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            acq::tmrDataArrival_Timer(ws);
            if (done()) return true;
        }
        return false;
    }
    // The workstation's serial port n on one end of a fresh pseudo-terminal
    // pair, with no other port to scan.
    void openSerial(PtyPair& pty, int n) {
        ASSERT_TRUE(pty.start()) << "socat did not give a port pair";
        ws.ports.setScanDevices(false);
        ws.ports.place(n, pty.workstationEnd());
        ws.MSComm1.CommPort = n;
        ASSERT_EQ(ws.MSComm1.SetPortOpen(true), 0) << ws.MSComm1.ErrorText().toStdString();
    }
    // What the instrument's end of a link got once at least n bytes came,
    // with anything that follows right behind them.
    static QByteArray readBack(QIODevice& instrument, int n) {
        QByteArray got;
        QElapsedTimer limit;
        limit.start();
        while (got.size() < n && limit.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            instrument.waitForReadyRead(50);
            got += instrument.readAll();
        }
        instrument.waitForReadyRead(200);
        return got + instrument.readAll();
    }
};

// A packet line of n fields: field i is "f<i>" unless given, "*" in front,
// CR LF behind.
inline QString Packet(std::initializer_list<std::pair<int, QString>> given, int n = 40) {
    QStringList f;
    for (int i = 0; i < n; ++i) f << QString("f%1").arg(i);
    for (const auto& [i, v] : given) f[i] = v;
    return "*" + f.join(',') + "\r\n";
}

} // namespace acqtest
