#pragma once
// The window of a panel other than the main screen. It shows and hides as
// the panel's form says, takes its title from the form's caption, and a
// close only hides it: the panel lives for the whole run.

#include <QWidget>

namespace forms {
class Panel;
}

namespace ui {

class PanelWindow : public QWidget {
    Q_OBJECT
  public:
    PanelWindow(forms::Panel& panel, QWidget* owner);
    forms::Panel& panel() const { return panel_; }
    // Shows or hides the window as the form says (the views call it once
    // they are built; later changes of the form arrive by themselves).
    void followForm();
    // The size the window takes on a screen with this much room: what it
    // asks for, within the room.
    virtual QSize preferredSize(const QSize& room) const;

  protected:
    void closeEvent(QCloseEvent* e) override;
    // Called the first time the window is shown by its form: its preferred
    // size on its screen, in the middle.
    virtual void placeOnShow();

  private:
    forms::Panel& panel_;
    bool placed_ = false;
};

} // namespace ui
