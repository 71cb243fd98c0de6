#pragma once
// The simulated rig data recorder: WITS level 0 frames from the drilling
// model at a steady rate, an answer to the workstation's probe, a record of
// every frame the workstation sends back, and misbehaviour on request.

#include "tools/common/drilling_model.h"
#include "wits/wits_frame.h"

#include <QFile>
#include <QSerialPort>
#include <QTimer>
#include <random>

namespace edr {

struct Settings {
    double rate = 1;      // frames a second
    int dropEvery = 0;    // leave out every Nth frame
    bool garbage = false; // noise lines and half frames between frames
    int silentAt = -1;    // second of the run a silent spell starts
    int silentFor = 60;   // its length in seconds
    int longLineAt = -1;  // after this frame, one line of 100,000 characters
    QString recordPath;   // frames the workstation sent, one line each
    QString logPath;      // one line per event
    drill::Options model;
};

class Recorder {
  public:
    Recorder(const Settings& s, QSerialPort& port);
    void start();
    void note(const QString& line);

  private:
    void tick();
    void send(const QString& text);
    QString frameText();
    void received();
    void record(const wits::ReceivedFrame& f);
    bool silent() const;

    Settings s_;
    QSerialPort& port_;
    drill::Model model_;
    drill::Sample sample_;
    QTimer timer_;
    QFile log_;
    QFile record_;
    wits::FrameReader reader_;
    std::mt19937 noise_{7};
    long frames_ = 0;       // frames due so far, sent or dropped
    long samplesEvery_ = 6; // frames per model sample (six seconds)
    qint64 startMs_ = 0;
    long received_ = 0;
    bool wasSilent_ = false;
};

} // namespace edr
