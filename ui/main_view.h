#pragma once
// The main screen fm_Gas_Chart: the chart canvas across the whole window,
// and floating over it the control box Frame6 with the link, refresh and job
// buttons and the message boxes, and the boxes of a chosen place.

#include <QMainWindow>

class QTimer;

class Workstation;

namespace ui {

class ChartCanvas;

class MainView : public QMainWindow {
  public:
    explicit MainView(Workstation& ws);
    ChartCanvas* canvas() const { return canvas_; }

  protected:
    // The exit question: No keeps the program running.
    void closeEvent(QCloseEvent* e) override;
    // Minimized, the title takes its short form.
    void changeEvent(QEvent* e) override;
    // A press on the screen itself: left hides the control box, right shows it.
    void mousePressEvent(QMouseEvent* e) override;

  private:
    void buildControlBox();
    // The chart's image canvas, shown by the canvas widget.
    void attachCanvas();
    void redrawAfterResize();
    Workstation& ws_;
    ChartCanvas* canvas_ = nullptr;
    QTimer* redraw_ = nullptr;
};

} // namespace ui
