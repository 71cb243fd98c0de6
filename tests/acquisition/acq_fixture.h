#pragma once
// A workstation over a temporary program folder with a fixed clock, and the
// small builders the acquisition tests share.

#include "acquisition/parser.h"
#include "acquisition/timers.h"
#include "acquisition/workstation.h"
#include "program_folder.h"
#include "scripted_dialogs.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>
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

class AcqTest : public ::testing::Test {
  protected:
    testkit::ProgramFolder folder;
    testkit::ScriptedDialogs dialogs;
    Workstation ws{folder.path(), &dialogs};

    AcqTest() {
        ws.Now = [] { return FixedNow(); };
    }

    // Puts text behind what waits in the line buffer and runs one parse.
    void parse(const QString& text) {
        ws.rt.Gline_buffer += text;
        acq::Parse_Ombri_String(ws);
    }
    const QString& buffer() const { return ws.rt.Gline_buffer; }
    const QString& field(int i) const { return ws.rt.Gombri_data_array[i]; }
    // Lets the links deliver and runs the intake tick until done() holds or
    // five seconds pass.
    bool intakeUntil(const std::function<bool()>& done) {
        QElapsedTimer limit;
        limit.start();
        while (limit.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            acq::tmrDataArrival_Timer(ws);
            if (done()) return true;
        }
        return false;
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
