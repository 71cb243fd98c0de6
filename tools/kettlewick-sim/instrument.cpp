#include "instrument.h"

#include "text/numbers.h"

#include <QTextStream>
#include <algorithm>

namespace sim {

namespace {

constexpr char kKeepAlive = char(250);
constexpr int kMaxLine = 4096;
// The key block: "[PGP KEY ", 255 elements of three digits, "]".
constexpr int kKeyElements = 255;
constexpr int kKeyLength = 9 + 3 * kKeyElements + 1;

QString Upper(const QString& s) {
    return s.trimmed().toUpper();
}

} // namespace

Instrument::Instrument(const Settings& s, Channel& channel)
    : s_(s), ch_(channel), model_(s.model), noise_(s.model.seed ^ 0x5eedu) {
    // The registers as the instrument leaves the factory.
    registers_ = {{25, 5}, {29, 30}, {30, 100}, {34, 3}, {45, 10}, {53, 15}};
    ch_.onData = [this](const QByteArray& b) { received(b); };
    ch_.onConnect = [this] {
        echo_ = true;
        twoWay_ = false;
        pending_.clear();
        replies_.clear();
        note(QStringLiteral("CONNECT"));
        // The adapter's greeting: the workstation throws away whatever it
        // held of the old connection when it reads this line.
        if (s_.greet) ch_.write(QByteArrayLiteral("TCPCONNECT\r\n"));
        // A new listener hears the next sample within a second, as the
        // instrument's network side sends what it holds; the regular rhythm
        // goes on from there.
        packetTimer_.stop();
        greetTimer_.start(std::min(1000, packetTimer_.interval()));
    };
    ch_.onNote = [this](const QString& t) { note(t); };
    QObject::connect(&packetTimer_, &QTimer::timeout, [this] { sendPacket(); });
    greetTimer_.setSingleShot(true);
    QObject::connect(&greetTimer_, &QTimer::timeout, [this] {
        sendPacket();
        if (s_.packets == 0 || sent_ < s_.packets) packetTimer_.start();
    });
    replyTimer_.setSingleShot(true);
    QObject::connect(&replyTimer_, &QTimer::timeout, [this] { sendNextReply(); });
    QObject::connect(&transferTimer_, &QTimer::timeout, [this] { sendTransferChunk(); });
}

void Instrument::start() {
    if (!s_.logPath.isEmpty()) {
        log_.setFileName(s_.logPath);
        log_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
    }
    if (!s_.dataPath.isEmpty()) {
        QFile f(s_.dataPath);
        if (f.open(QIODevice::ReadOnly))
            for (const QByteArray& l : f.readAll().split('\n'))
                if (!l.trimmed().isEmpty()) data_ << QString::fromLatin1(l.trimmed());
    }
    for (int i = 0; i < s_.history; ++i) store(model_.next());
    packetTimer_.start(std::max(1, int(s_.interval * 1000)));
}

void Instrument::note(const QString& line) {
    if (!log_.isOpen()) return;
    log_.write((line + QLatin1Char('\n')).toLatin1());
    log_.flush();
}

void Instrument::sendPacket() {
    // The instrument samples whether anyone listens or not; what nobody
    // hears is simply lost, and the packet numbers jump.
    if (s_.packets > 0 && sent_ >= s_.packets) return;
    const drill::Sample sample = model_.next();
    store(sample);
    if (!ch_.connected()) return;

    ch_.write(drill::Model::PacketLine(sample).toLatin1());
    ++sent_;
    note(QStringLiteral("PACKET ") + QString::number(sample.packetNumber));
    if (s_.packets > 0 && sent_ >= s_.packets) {
        // The link stays up, silent, so the other end can finish its work.
        packetTimer_.stop();
        note(QStringLiteral("DONE ") + QString::number(sent_));
    }
    if (s_.relayWits) ch_.write(drill::Model::WitsLine(sample).toLatin1());

    if (s_.garbage && std::uniform_int_distribution<int>(0, 2)(noise_) == 0)
        QTimer::singleShot(std::max(1, int(s_.interval * 500)), [this] { sendGarbage(); });

    if (s_.dropEvery > 0 && sent_ % s_.dropEvery == 0) {
        // Pulled mid-packet: half of the next line goes out, then nothing.
        const QByteArray next = drill::Model::PacketLine(model_.next()).toLatin1();
        ch_.write(next.left(next.size() / 2));
        note(QStringLiteral("DROP"));
        ch_.drop();
    }
}

void Instrument::sendGarbage() {
    if (!ch_.connected()) return;
    std::uniform_int_distribution<int> byte(0, 255), len(5, 80), kind(0, 1);
    QByteArray burst;
    if (kind(noise_) == 0) {
        for (int i = len(noise_); i > 0; --i) {
            char c = char(byte(noise_));
            if (c == '\r' || c == '*' || c == '^' || c == '&') c = '?';
            burst += c;
        }
    } else {
        // the front of a packet whose end was lost on the line
        const QByteArray line = drill::Model::PacketLine(model_.next()).toLatin1();
        burst = line.left(len(noise_));
    }
    burst += "\r\n";
    ch_.write(burst);
    note(QStringLiteral("GARBAGE ") + QString::number(burst.size()));
}

void Instrument::received(const QByteArray& bytes) {
    for (char c : bytes) {
        if (c == kKeepAlive) {
            ++keepAlives_;
            note(QStringLiteral("KEEPALIVE ") + QString::number(keepAlives_));
            continue;
        }
        if (echo_ && ch_.echoes()) ch_.write(QByteArray(1, c));
        if (c == '\r') {
            const QString line = QString::fromLatin1(pending_);
            pending_.clear();
            handleLine(line);
        } else if (c != '\n') {
            if (pending_.size() < kMaxLine) pending_ += c;
        }
    }
}

void Instrument::reply(const QString& line) {
    replies_.append(line);
    if (!replyTimer_.isActive()) sendNextReply();
}

// The console works through its commands one at a time, so each answer
// reaches the workstation on its own rather than in one burst.
void Instrument::sendNextReply() {
    if (replies_.isEmpty()) return;
    ch_.write((replies_.takeFirst() + QStringLiteral("\r\n")).toLatin1());
    replyTimer_.start(s_.replyGapMs);
}

void Instrument::handleLine(const QString& raw) {
    const QString line = raw.trimmed();
    if (line.isEmpty()) return; // the wake-up CR
    const QString up = Upper(line);
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);

    if (up.startsWith(QLatin1String("LAGDEPTH "))) {
        checkLagDepth(line);
        return;
    }
    if (up.startsWith(QLatin1String("[PGP KEY "))) {
        const bool ok = s_.twoWayLogin && validKeyBlock(line);
        note(ok ? QStringLiteral("LOGIN OK") : QStringLiteral("LOGIN REFUSED"));
        twoWay_ = ok;
        reply(ok ? QStringLiteral("[TWO WAY]") : QStringLiteral("[OUTPUT ONLY]"));
        return;
    }
    note(QStringLiteral("COMMAND ") + line);
    if (up == QLatin1String("?")) {
        reply(QStringLiteral("KETTLEWICK GAS DETECTOR SN ") + s_.model.serial + " READY");
    } else if (up == QLatin1String("STATUS")) {
        reply(twoWay_ ? QStringLiteral("[TWO WAY]") : QStringLiteral("[OUTPUT ONLY]"));
    } else if (up == QLatin1String("ECHO OFF")) {
        echo_ = false;
    } else if (up == QLatin1String("ECHO ON")) {
        echo_ = true;
    } else if (up.startsWith(QLatin1String("SETREG")) && words.size() >= 3) {
        const int r = int(text::Val(words[1]));
        registers_[r] = int(text::Val(words[2]));
        reply("Reg " + QString::number(r) + " = " + QString::number(registers_[r]));
    } else if (up.startsWith(QLatin1String("READREG")) && words.size() >= 2) {
        const int r = int(text::Val(words[1]));
        reply("Reg " + QString::number(r) + " = " + QString::number(registers_[r]));
    } else if (up.startsWith(QLatin1String("SETDEPTH"))) {
        if (words.size() >= 2) model_.setHoleDepth(text::Val(words[1]));
        reply("DRILL DEPTH IS: " + text::Str(std::floor(model_.holeDepth())));
    } else if (up == QLatin1String("TRANSFER KW_DATA.OMD")) {
        startTransfer();
    } else if (up.startsWith(QLatin1String("WRITEETIME")) && words.size() >= 3) {
        // Teaches the column where a peak falls; the log keeps what was taken.
        const QString name = words[1].toUpper();
        const double seconds = text::Val(words[2]);
        const bool ok = model_.setPeakTime(drill::Model::PeakIndex(name), seconds);
        note("WRITEETIME " + name + " " + text::Str(seconds) + (ok ? "" : " REFUSED"));
    } else if (up.startsWith(QLatin1String("SETJOBNUM"))) {
        if (words.size() >= 2) jobNumber_ = words[1];
        reply("JOB NUM " + jobNumber_);
    }
}

void Instrument::checkLagDepth(const QString& line) {
    // "LAGDEPTH x c": c is the sum of the character codes of "LAGDEPTH x",
    // modulo 256.
    const auto blank = line.lastIndexOf(QLatin1Char(' '));
    const QString body = line.left(blank);
    const int given = int(text::Val(line.mid(blank + 1)));
    int sum = 0;
    for (QChar c : body) sum += c.unicode();
    const bool ok = blank > 9 && given == sum % 256;
    note(QStringLiteral("LAGDEPTH ") + body.mid(9) + " " + QString::number(given) +
         (ok ? QStringLiteral(" OK") : QStringLiteral(" BAD")));
}

bool Instrument::validKeyBlock(const QString& line) const {
    // The form only: the instrument's own judgement of the account is not
    // simulated. Right length, all digits, bytes in range, a pad position k
    // from 30 to 200, and a masked name and password that unmask to
    // printable text.
    if (line.size() != kKeyLength || !line.endsWith(QLatin1Char(']'))) return false;
    int e[kKeyElements];
    for (int i = 0; i < kKeyElements; ++i) {
        bool ok = false;
        e[i] = line.mid(9 + 3 * i, 3).toInt(&ok);
        if (!ok || e[i] > 255 || !line[9 + 3 * i].isDigit()) return false;
    }
    const int k = e[5];
    if (k < 30 || k > 200) return false;
    QByteArray name, password;
    for (int i = 0; i < 20; ++i) {
        const int c = e[k + i] ^ e[6 + i];
        if (c == 0) continue;
        if (c < 32 || c > 126) return false;
        (i < 10 ? name : password) += char(c);
    }
    return name.size() >= 3 && password.size() >= 3;
}

} // namespace sim

namespace sim {

namespace {
// Lines a transfer sends each tenth of a second.
constexpr int kTransferLines = 20;
} // namespace

void Instrument::store(const drill::Sample& sample) {
    // The instrument's log form: date yymmdd, time hhmmss, packet, depth,
    // bit depth, gas, O2, CO2, rate, run, CG volts, H2S, C1 to nC4, gamma,
    // strokes a minute, inclination, azimuth.
    const auto& f = sample.fields;
    double gamma = 0;
    for (const drill::WitsItem& w : sample.wits)
        if (w.code == 823) gamma = w.value;
    QStringList parts = {QStringLiteral("@"),
                         sample.time.toString(QStringLiteral("yyMMdd")),
                         sample.time.toString(QStringLiteral("HHmmss")),
                         QString::number(sample.packetNumber),
                         f[3],
                         text::Str(sample.bitDepth),
                         f[4],
                         f[5],
                         f[6],
                         f[9],
                         f[16],
                         f[17],
                         f[19],
                         f[29],
                         f[30],
                         f[31],
                         f[32],
                         f[33],
                         text::Str(gamma),
                         text::Str(sample.spm),
                         QStringLiteral("0"),
                         QStringLiteral("0")};
    const QString line = parts.join(QLatin1Char(','));
    data_ << line;
    if (s_.dataPath.isEmpty()) return;
    QFile file(s_.dataPath);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write((line + QStringLiteral("\r\n")).toLatin1());
}

void Instrument::startTransfer() {
    // While it sends its file the instrument takes no samples.
    packetTimer_.stop();
    transfer_ = data_;
    transferAt_ = 0;
    paused_ = false;
    note(QStringLiteral("TRANSFER START ") + QString::number(transfer_.size()));
    transferTimer_.start(100);
}

void Instrument::sendTransferChunk() {
    const qsizetype half = transfer_.size() / 2;
    const bool pauseDue = s_.transferPause > 0 && !paused_;
    if (pauseDue && transferAt_ >= half) {
        paused_ = true;
        note(QStringLiteral("TRANSFER PAUSE ") + QString::number(transferAt_));
        transferTimer_.stop();
        QTimer::singleShot(int(s_.transferPause * 1000), [this] { transferTimer_.start(100); });
        return;
    }
    // A pause to come stops the chunk at the half way line.
    const qsizetype end =
        std::min(transferAt_ + kTransferLines, pauseDue ? half : transfer_.size());
    QByteArray chunk;
    while (transferAt_ < end)
        chunk += (transfer_[transferAt_++] + QStringLiteral("\r\n")).toLatin1();
    if (!chunk.isEmpty() && ch_.connected()) ch_.write(chunk);
    if (transferAt_ >= transfer_.size()) {
        transferTimer_.stop();
        note(QStringLiteral("TRANSFER END ") + QString::number(transferAt_));
        packetTimer_.start(std::max(1, int(s_.interval * 1000)));
    }
}

} // namespace sim
