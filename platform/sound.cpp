#include "platform/sound.h"

#include <QFile>
#include <QSoundEffect>
#include <QUrl>

namespace platform {

namespace {
// A wave file starts "RIFF", four bytes of length, "WAVE".
bool LooksLikeWave(QFile& f) {
    const QByteArray head = f.read(12);
    return head.size() == 12 && head.startsWith("RIFF") && head.mid(8, 4) == "WAVE";
}
} // namespace

Sound::Sound() = default;
Sound::~Sound() = default;

bool Sound::Play(const QString& file, QString& why) {
    QFile f(file);
    if (file.isEmpty() || !f.exists()) {
        why = QStringLiteral("File not found");
        return false;
    }
    if (!f.open(QIODevice::ReadOnly) || !LooksLikeWave(f)) {
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
