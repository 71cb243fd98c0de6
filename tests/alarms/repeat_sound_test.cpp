// The rhythm of the monitor's passes, its timer, the alarm sound and the
// wave file's controls.
#include "alarm_fixture.h"

#include "simulator.h"

#include <QDataStream>
#include <QFile>
#include <QTimer>

using alarmtest::AlarmTest;

namespace {

class RepeatAndSound : public AlarmTest {
  protected:
    // Passes in `seconds` ticks of the timer with a condition that always
    // holds.
    int passesIn(int seconds) {
        ws.alarms.alarm_repeat_countdown = 0;
        const long before = ws.alarms.alarmsRaised;
        for (int i = 0; i < seconds; ++i) alarms::tmr_alarm_mon_Timer(ws);
        return static_cast<int>(ws.alarms.alarmsRaised - before);
    }
    // A wave file of a tenth of a second of silence: 8 kHz, 8 bits, mono.
    QString writeWave(const QString& name) {
        QFile f(folder.file(name));
        f.open(QIODevice::WriteOnly);
        QDataStream d(&f);
        d.setByteOrder(QDataStream::LittleEndian);
        d.writeRawData("RIFF", 4);
        d << quint32(36 + 800);
        d.writeRawData("WAVEfmt ", 8);
        d << quint32(16) << quint16(1) << quint16(1) << quint32(8000) << quint32(8000) << quint16(1)
          << quint16(8);
        d.writeRawData("data", 4);
        d << quint32(800);
        f.write(QByteArray(800, '\0'));
        return f.fileName();
    }
};

TEST_F(RepeatAndSound, PassesComeAtTheRepeatIntervalNeverFasterThanFiveSeconds) {
    ws.fm_setup.ck_lost_kw_con.setChecked(true);
    ws.fm_Gas_Chart.cmd_comm1.setBackColor(forms::color::Red);
    struct Case {
        const char* repeat;
        int passes; // in 30 seconds, the first in the first second
    };
    const Case cases[] = {
        {"10", 3},  {"1", 6},   {"5", 6},   {"0", 6},
        {"", 6},    {"abc", 6}, {"7.5", 4}, // 7.5 rounds to 8
        {"6.5", 5},                         // 6.5 rounds to 6, a tie goes to the even one
        {"30", 1},
    };
    for (const Case& c : cases) {
        ws.fm_setup.txt_al_repeat.setText(c.repeat);
        EXPECT_EQ(passesIn(30), c.passes) << c.repeat;
    }
}

TEST_F(RepeatAndSound, TheTimerTicksEverySecondAndHighGasShowsWithinOne) {
    auto* t = ws.timer("tmr_alarm_mon");
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->interval(), 1000);
    ws.fm_setup.ck_high_gu.setChecked(true);
    // The first pass comes in the first second; the next at the repeat.
    t->start();
    testkit::Pump(1100);
    EXPECT_EQ(box().text(), "");
    ws.alarms.alarm_repeat_countdown = 0; // a packet crosses the threshold now
    field(acq::GASUNITS) = "1600";
    EXPECT_TRUE(testkit::PumpUntil(1100, [&] { return box().text() == "High Gas Units Alarm"; }));
    t->stop();
}

TEST_F(RepeatAndSound, AMissingOrBrokenWaveFileIsLoggedAndNeverStopsTheAlarm) {
    ws.fm_setup.ck_high_gu.setChecked(true);
    field(acq::GASUNITS) = "2000";
    QFile broken(folder.file("broken.wav"));
    broken.open(QIODevice::WriteOnly);
    broken.write("this is no wave file at all");
    broken.close();
    struct Case {
        QString file;
        bool plays;
    };
    const Case cases[] = {{"", false},
                          {"*.wav", false},
                          {folder.file("nowhere.wav"), false},
                          {folder.file("broken.wav"), false},
                          {writeWave("alarm.wav"), true}};
    for (const Case& c : cases) {
        ws.fm_setup.txt_wav_file.setText(c.file);
        const long failures = ws.alarms.soundFailures;
        EXPECT_EQ(alarms::playwav(ws, c.file), c.plays) << c.file.toStdString();
        EXPECT_EQ(ws.alarms.soundFailures - failures, c.plays ? 0 : 1);
        clearBox();
        EXPECT_TRUE(pass());
        EXPECT_EQ(box().text(), "High Gas Units Alarm");
        // The test button plays the same file the same way, without waiting.
        alarms::wav_test_Click(ws);
    }
    // Whatever the sound system makes of it later, the loop goes on.
    testkit::Pump(300);
    EXPECT_TRUE(pass());
}

TEST_F(RepeatAndSound, TheBrowseDialogPicksTheWaveFile) {
    ws.fm_setup.txt_wav_file.setText("*.wav");
    dialogs.files.push_back("/sounds/horn.wav");
    alarms::cmd_browse_wav_Click(ws);
    EXPECT_EQ(ws.fm_setup.txt_wav_file.text(), "/sounds/horn.wav");
    ASSERT_FALSE(dialogs.boxes.empty());
    EXPECT_EQ(dialogs.boxes.back().title, "SELECT *.WAV FILE FOR ALARM");
    // Cancelled: the file stays.
    alarms::cmd_browse_wav_Click(ws);
    EXPECT_EQ(ws.fm_setup.txt_wav_file.text(), "/sounds/horn.wav");
}

TEST_F(RepeatAndSound, UntickingClearsTheBoxAndAMonitorMessageOutlivesAPacket) {
    ws.fm_setup.ck_high_gu.setChecked(true);
    field(acq::GASUNITS) = "2000";
    EXPECT_TRUE(pass());
    EXPECT_EQ(ws.alarms.alarmMonitorText, "High Gas Units Alarm");
    ws.fm_setup.ck_high_gu.setChecked(false);
    alarms::ck_high_gu_Click(ws);
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(box().backColor(), forms::color::White);
    EXPECT_TRUE(ws.alarms.alarmMonitorText.isEmpty());
    // While the configuration is read, the handlers do nothing.
    ws.fm_setup.ck_long_ft.setChecked(true);
    ws.fm_Gas_Chart.txt_KW_err.setText("kept");
    ws.loop.Gstarting_up = true;
    ws.fm_setup.ck_long_ft.setChecked(false);
    alarms::ck_long_ft_Click(ws);
    EXPECT_EQ(box().text(), "kept");
}

} // namespace
