#pragma once
// A workstation over a temporary program folder, with the shipped WITS item
// file, for the WITS gateway's tests; frames built with the gateway's own
// writer.

#include "test_station.h"
#include "wits/wits_file.h"
#include "wits/wits_frame.h"
#include "wits/wits_link.h"
#include "wits/wits_timers.h"
#include "workstation/workstation.h"

#include <QFile>
#include <gtest/gtest.h>
#include <ostream>

inline std::ostream& operator<<(std::ostream& os, const QString& s) {
    return os << s.toStdString();
}

namespace witstest {

class WitsTest : public ::testing::Test, protected testkit::Station {
  protected:
    WitsTest() {
        ws.Now = testkit::FixedNow;
        wits::LoadWitsFile(ws);
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
};

} // namespace witstest
