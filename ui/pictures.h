#pragma once
// Pictures of every screen, saved into a folder every few seconds while the
// program runs, with the words each screen shows, one control to a line.
// Someone helping from afar asks for the folder instead of a description of
// the screens; the end-to-end test reads it to see the running program.

#include <QObject>
#include <QString>
#include <QTimer>

namespace ui {

class Desktop;

class ScreenPictures : public QObject {
  public:
    ScreenPictures(Desktop& desktop, QString dir, int periodMs = 2000);
    // Saves every screen now: <window>.png (each tab of the setup panel as
    // fm_setup_<n>_<tab>.png) and screens.txt ("window.control<TAB>words").
    // False (and the pictures of the last time stand) when the folder
    // cannot be written.
    bool saveNow();

  private:
    Desktop& desktop_;
    QString dir_;
    QTimer timer_;
};

} // namespace ui
