#pragma once
// A workstation with the shipped WITS item file, and a serial line to play
// the recorder on.

#include "pty_pair.h"
#include "test_station.h"
#include "wits/wits_file.h"
#include "wits/wits_frame.h"
#include "wits/wits_link.h"
#include "wits/wits_timers.h"
#include "workstation/workstation.h"

#include <QSerialPort>
#include <gtest/gtest.h>
#include <ostream>

inline std::ostream& operator<<(std::ostream& os, const QString& s) {
    return os << s.toStdString();
}

namespace witstest {

class WitsTest : public ::testing::Test, protected testkit::Station {
  protected:
    explicit WitsTest(const QString& jobName = {}) : testkit::Station(jobName) {
        ws.Now = testkit::FixedNow;
        ws.ports.setScanDevices(false);
        wits::LoadWitsFile(ws);
    }
    ~WitsTest() override {
        ws.closing = true;
        ws.StopTimers();
        ws.MSComm2.SetPortOpen(false);
    }
    auto& slot(int i) { return ws.wits.Gwits_values[i]; }
    // Text as it comes off the port, then the frame test and the parse.
    void receive(const QString& text) {
        wits::ReceiveWitsText(ws, text);
        wits::ServeWitsBuffer(ws);
    }
    // A frame led by a blank line, as the recorders this workstation meets
    // send them: the parse never looks at the part before the first CR.
    static QString LedFrame(const std::vector<std::pair<int, QString>>& items) {
        return "\r\n" + wits::Frame(items);
    }
    const QStringList& list() const { return ws.more_data.wits_info.items(); }
    // A socat pair with the workstation's port n at one end; the far end is
    // opened as `edr` unless a simulator is to take it.
    void pairOn(int n, bool openFarEnd = true) {
        ASSERT_TRUE(pair.start()) << "socat gave no port pair";
        ws.ports.place(n, pair.workstationEnd());
        if (!openFarEnd) return;
        edr.setPortName(pair.farEnd());
        ASSERT_TRUE(edr.open(QIODevice::ReadWrite));
    }
    testkit::PtyPair pair;
    QSerialPort edr;
};

} // namespace witstest
