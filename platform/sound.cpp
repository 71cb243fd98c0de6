#include "platform/sound.h"

#include <QFile>
#include <QSoundEffect>
#include <QUrl>

namespace platform {

namespace {

quint32 Le32(const QByteArray& b, qsizetype at) {
    const auto* p = reinterpret_cast<const uchar*>(b.constData() + at);
    return quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
}
quint16 Le16(const QByteArray& b, qsizetype at) {
    const auto* p = reinterpret_cast<const uchar*>(b.constData() + at);
    return quint16(p[0] | p[1] << 8);
}

// A wave file the player can finish loading: "RIFF", length, "WAVE", then
// chunks, among them a "fmt " of integer or float samples and a "data" chunk
// that the file holds whole. The player waits for ever on a file cut short,
// so that is refused here, before it gets the file.
bool IsWholeWave(QFile& f) {
    const QByteArray head = f.read(12);
    if (head.size() != 12 || !head.startsWith("RIFF") || head.mid(8, 4) != "WAVE") return false;
    const qint64 size = f.size();
    bool format = false;
    for (int chunks = 0; chunks < 64; ++chunks) {
        const QByteArray chunk = f.read(8);
        if (chunk.size() != 8) return false;
        const qint64 length = Le32(chunk, 4);
        const qint64 body = f.pos();
        if (body + length > size) return false;
        if (chunk.startsWith("fmt ")) {
            const QByteArray fmt = f.read(16);
            if (length < 16 || fmt.size() != 16) return false;
            const quint16 tag = Le16(fmt, 0), channels = Le16(fmt, 2), bits = Le16(fmt, 14);
            format = (tag == 1 || tag == 3 || tag == 0xFFFE) && channels >= 1 && channels <= 8 &&
                     bits >= 8 && bits <= 32 && bits % 8 == 0;
            if (!format) return false;
        } else if (chunk.startsWith("data")) {
            return format && length > 0;
        }
        if (!f.seek(body + length + (length & 1))) return false;
    }
    return false;
}

} // namespace

Sound::Sound() = default;
Sound::~Sound() = default;

bool Sound::Settled() const {
    return !effect_ || effect_->status() != QSoundEffect::Loading;
}

bool Sound::Play(const QString& file, QString& why) {
    QFile f(file);
    if (file.isEmpty() || !f.exists()) {
        why = QStringLiteral("File not found");
        return false;
    }
    if (!f.open(QIODevice::ReadOnly) || !IsWholeWave(f)) {
        why = QStringLiteral("Not a wave file");
        return false;
    }
    // Made on first use: a workstation that never sounds an alarm never
    // wakes the sound system.
    if (!effect_) {
        effect_ = std::make_unique<QSoundEffect>();
        QObject::connect(effect_.get(), &QSoundEffect::statusChanged, effect_.get(), [this] {
            if (effect_->status() == QSoundEffect::Error && onFailed)
                onFailed(effect_->source().toLocalFile());
        });
    }
    const QUrl url = QUrl::fromLocalFile(file);
    if (effect_->source() != url) {
        effect_->setSource(url);
    } else if (effect_->isPlaying()) {
        effect_->stop();
    }
    effect_->play();
    return true;
}

} // namespace platform
