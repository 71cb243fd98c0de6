#pragma once
// The alarm sound: a wave file played in the background. Nothing ever waits
// for it to end (with no sound device a player may say it plays for ever).

#include <QString>
#include <functional>
#include <memory>

class QSoundEffect;

namespace platform {

class Sound {
  public:
    Sound();
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    // Starts the file and returns at once. False, with the reason in why,
    // when it can't be played: no such file, or not a wave file.
    bool Play(const QString& file, QString& why);
    // A file that looked right but the player could not take, reported
    // later from the event loop.
    std::function<void(const QString& file)> onFailed;
    // True when the player is not still loading a file.
    bool Settled() const;

  private:
    std::unique_ptr<QSoundEffect> effect_;
};

} // namespace platform
