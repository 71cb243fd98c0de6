// The rhythm of the monitor's passes, the alarm sound and the wave file.
#include "alarm_fixture.h"
#include "file_bytes.h"

#include "simulator.h"

#include <QTimer>

using alarmtest::AlarmTest;

namespace {

class RepeatAndSound : public AlarmTest {
  protected:
    // A file of the given head, in the program folder.
    QString file(const QString& name, const QByteArray& head) {
        testkit::WriteFile(folder.file(name), head);
        return folder.file(name);
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
        {"abc", 6},
        {"7.5", 4}, // 7.5 rounds to 8
        {"6.5", 5}, // 6.5 rounds to 6, a tie goes to the even one
    };
    for (const Case& c : cases) {
        ws.fm_setup.txt_al_repeat.setText(c.repeat);
        ws.alarms.alarm_repeat_countdown = 0;
        const long before = ws.alarms.alarmsRaised;
        for (int i = 0; i < 30; ++i) alarms::tmr_alarm_mon_Timer(ws);
        EXPECT_EQ(ws.alarms.alarmsRaised - before, c.passes) << c.repeat;
    }
}

TEST_F(RepeatAndSound, TheTimerShowsHighGasWithinASecond) {
    auto* t = ws.timer("tmr_alarm_mon");
    ASSERT_NE(t, nullptr);
    ws.fm_setup.ck_high_gu.setChecked(true);
    field(acq::GASUNITS) = "1600";
    t->start();
    EXPECT_TRUE(testkit::PumpUntil(1100, [&] { return box().text() == "High Gas Units Alarm"; }));
    t->stop();
}

// A mono 8-bit wave of the given sample count; `cut` bytes short of whole.
QByteArray Wave(quint32 samples, int cut = 0) {
    auto le32 = [](quint32 v) {
        return QByteArray(1, char(v)) + char(v >> 8) + char(v >> 16) + char(v >> 24);
    };
    QByteArray fmt("fmt ");
    fmt += le32(16) + QByteArray("\x01\x00\x01\x00", 4) + le32(8000) + le32(8000) +
           QByteArray("\x01\x00\x08\x00", 4);
    QByteArray body = "WAVE" + fmt + "data" + le32(samples) + QByteArray(int(samples), '\x80');
    QByteArray w = "RIFF" + le32(quint32(body.size())) + body;
    return w.left(w.size() - cut);
}

TEST_F(RepeatAndSound, AMissingOrBrokenWaveFileIsCountedAndNeverStopsTheAlarm) {
    ws.fm_setup.ck_high_gu.setChecked(true);
    field(acq::GASUNITS) = "2000";
    struct Case {
        QString file;
        bool plays;
    };
    QByteArray noFormat = Wave(800);
    noFormat.replace("fmt ", "junk");
    const Case cases[] = {{folder.file("nowhere.wav"), false},
                          {file("broken.wav", "this is no wave file at all"), false},
                          {file("head.wav", QByteArray("RIFF\x24\0\0\0WAVEfmt ", 16)), false},
                          {file("cut.wav", Wave(800, 100)), false},
                          {file("noformat.wav", noFormat), false},
                          {file("alarm.wav", Wave(800)), true}};
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
    // Whatever the sound system makes of the whole file, it finishes loading
    // it and the loop goes on.
    EXPECT_TRUE(testkit::PumpUntil(10000, [&] { return ws.sound.Settled(); }));
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

} // namespace
