#pragma once
// The alarm monitor's workstation: a clock the test moves, every switch off.

#include "alarms/alarm_monitor.h"
#include "test_station.h"
#include "workstation/packet_state.h"
#include "workstation/workstation.h"

#include <gtest/gtest.h>

namespace alarmtest {

class AlarmTest : public ::testing::Test, protected testkit::Station {
  protected:
    QDateTime now = testkit::FixedNow();

    AlarmTest() {
        ws.Now = [this] { return now; };
        ws.loop.Gstarting_up = false;
        allOff();
        // Links look healthy unless a case says otherwise.
        ws.fm_Gas_Chart.cmd_WITS_info.setBackColor(forms::color::Green);
        ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Green);
        ws.fm_setup.txt_al_date.setText("05 Mar 2024");
        ws.fm_setup.txt_al_time.setText("18:00:00");
        field(acq::DEPTH) = "4000";
        field(acq::GASUNITS) = "10";
    }
    void allOff() {
        for (const auto& c : alarms::AlarmConditions()) (ws.fm_setup.*c.sw).setChecked(false);
    }
    QString& field(int i) { return ws.packet.Gombri_data_array[i]; }
    // One tick that is sure to test the conditions; true when it raised.
    bool pass() {
        ws.alarms.alarm_repeat_countdown = 0;
        const long before = ws.alarms.alarmsRaised;
        alarms::tmr_alarm_mon_Timer(ws);
        return ws.alarms.alarmsRaised > before;
    }
    const forms::Control& box() const { return ws.fm_Gas_Chart.txt_KW_err; }
    void clearBox() {
        ws.fm_Gas_Chart.txt_KW_err.setText("");
        ws.fm_Gas_Chart.txt_KW_err.setBackColor(forms::color::White);
    }
};

} // namespace alarmtest
