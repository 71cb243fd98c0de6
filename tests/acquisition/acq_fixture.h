#pragma once
// A workstation over a temporary program folder with a fixed clock, the
// small builders the acquisition tests share, and a real pseudo-terminal
// pair for the serial line.

#include "acquisition/main_loop.h"
#include "acquisition/parser.h"
#include "program_folder.h"
#include "scripted_dialogs.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>

// Readable failures: gtest prints a QString as its text.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace acqtest {

// The clock every test workstation reads: 14:07:09 on 5 March 2024, which
// the logs show as "14:07:09" and "03/05/2024".
inline QDateTime FixedNow() {
    return QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9));
}

// A pseudo-terminal pair from socat: one end for the workstation's serial
// port, the other for the test that plays the instrument.
class PtyPair {
  public:
    ~PtyPair() {
        if (proc_.state() != QProcess::NotRunning) {
            proc_.terminate();
            if (!proc_.waitForFinished(2000)) proc_.kill();
            proc_.waitForFinished(2000);
        }
    }
    bool start() {
        proc_.start("socat", {"pty,raw,echo=0,link=" + workstationEnd(),
                              "pty,raw,echo=0,link=" + instrumentEnd()});
        if (!proc_.waitForStarted(3000)) return false;
        for (int i = 0; i < 50; ++i) {
            if (QFileInfo::exists(workstationEnd()) && QFileInfo::exists(instrumentEnd()))
                return true;
            QThread::msleep(50);
        }
        return false;
    }
    QString workstationEnd() const { return dir_.path() + "/ws"; }
    QString instrumentEnd() const { return dir_.path() + "/kw"; }

  private:
    QTemporaryDir dir_;
    QProcess proc_;
};

class AcqTest : public ::testing::Test {
  protected:
    testkit::ProgramFolder folder;
    testkit::ScriptedDialogs dialogs;
    testkit::WiredWorkstation ws{folder.path(), &dialogs};

    AcqTest() {
        ws.Now = [] { return FixedNow(); };
    }

    // Puts text behind what waits in the line buffer and runs one parse.
    void parse(const QString& text) {
        ws.packet.Gline_buffer += text;
        acq::Parse_Ombri_String(ws);
    }
    const QString& buffer() const { return ws.packet.Gline_buffer; }
    const QString& field(int i) const { return ws.packet.Gombri_data_array[i]; }
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
