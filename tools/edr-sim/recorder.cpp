#include "recorder.h"

#include "text/numbers.h"

#include <QDateTime>
#include <cmath>

namespace edr {

namespace {
constexpr int kLongLine = 100000;
// The workstation's probe carries this one unset item.
constexpr int kProbeCode = 111;
} // namespace

Recorder::Recorder(const Settings& s, QSerialPort& port) : s_(s), port_(port), model_(s.model) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { tick(); });
    QObject::connect(&port_, &QSerialPort::readyRead, [this] { received(); });
    if (!s_.logPath.isEmpty()) {
        log_.setFileName(s_.logPath);
        log_.open(QIODevice::Append | QIODevice::Text);
    }
    if (!s_.recordPath.isEmpty()) {
        record_.setFileName(s_.recordPath);
        record_.open(QIODevice::Append | QIODevice::Text);
    }
}

void Recorder::start() {
    // The model moves on six seconds a sample, whatever the frame rate.
    samplesEvery_ = std::max<long>(1, std::lround(6 * s_.rate));
    sample_ = model_.next();
    startMs_ = QDateTime::currentMSecsSinceEpoch();
    timer_.start(std::max(1, int(std::lround(1000 / s_.rate))));
}

void Recorder::note(const QString& line) {
    if (!log_.isOpen()) return;
    log_.write((line + "\n").toLatin1());
    log_.flush();
}

bool Recorder::silent() const {
    if (s_.silentAt < 0) return false;
    const qint64 sec = (QDateTime::currentMSecsSinceEpoch() - startMs_) / 1000;
    return sec >= s_.silentAt && sec < s_.silentAt + s_.silentFor;
}

QString Recorder::frameText() {
    std::vector<std::pair<int, QString>> items;
    for (const drill::WitsItem& w : sample_.wits) {
        // Survey angles keep two decimals; everything else one, so that no
        // item is ever shorter than a receiver reads.
        items.emplace_back(w.code, text::Format(w.value, w.code / 100 == 7 ? u"0.00" : u"0.0"));
    }
    // A blank line in front: receivers skip what comes before the first
    // line end of a read.
    return wits::kCRLF + wits::Frame(items);
}

void Recorder::send(const QString& text) {
    if (!port_.isOpen()) return;
    port_.write(text.toLatin1());
    port_.flush();
}

void Recorder::tick() {
    ++frames_;
    if (frames_ % samplesEvery_ == 0) sample_ = model_.next();
    const bool quiet = silent();
    if (quiet != wasSilent_) note(quiet ? QStringLiteral("SILENT") : QStringLiteral("TALKING"));
    wasSilent_ = quiet;
    if (quiet) return;
    if (s_.dropEvery > 0 && frames_ % s_.dropEvery == 0) {
        note(QStringLiteral("DROPPED %1").arg(frames_));
        return;
    }
    send(frameText());
    note(QStringLiteral("SENT %1 %2").arg(frames_).arg(text::Format(sample_.holeDepth, u"0.0")));
    if (s_.garbage) {
        // Printable noise, then now and then a frame cut off in the middle.
        QString noise;
        for (int i = 0; i < 40; ++i) noise += QChar(33 + int(noise_() % 90));
        send(noise + wits::kCRLF);
        if (frames_ % 5 == 0) send(QStringLiteral("\r\n&&\r\n01105"));
        note(QStringLiteral("GARBAGE %1").arg(frames_));
    }
    if (frames_ == s_.longLineAt) {
        send(QString(kLongLine, QLatin1Char('7')) + wits::kCRLF);
        note(QStringLiteral("LONGLINE %1").arg(frames_));
    }
}

void Recorder::received() {
    reader_.push(QString::fromLatin1(port_.readAll()));
    for (const wits::ReceivedFrame& f : reader_.take()) {
        if (f.items.size() == 1 && f.items[0].first == kProbeCode) {
            note(QStringLiteral("PROBE"));
            if (!silent()) send(frameText());
            continue;
        }
        record(f);
    }
}

void Recorder::record(const wits::ReceivedFrame& f) {
    ++received_;
    QStringList parts;
    for (const auto& [code, value] : f.items)
        parts << QStringLiteral("%1=%2").arg(code, 4, 10, QLatin1Char('0')).arg(value);
    const QString line = QStringLiteral("FRAME %1 ").arg(received_) + parts.join(';');
    if (record_.isOpen()) {
        record_.write((line + "\n").toLatin1());
        record_.flush();
    }
    note(QStringLiteral("RECEIVED %1").arg(received_));
}

} // namespace edr
