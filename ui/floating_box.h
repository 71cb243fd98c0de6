#pragma once
// A box floating over the chart canvas (Frame6, sel_type, Geo_edit): a
// title strip with the box's caption to take hold of, and its controls
// under it. The box stands where its model control's place says, brought
// inside the canvas, and shows and hides with the control. A left-button
// drag on the strip goes to the chart's box handlers in twips of the
// canvas; the widget only follows the model.

#include <QFrame>
#include <functional>

class QLabel;
class Workstation;

namespace forms {
class Control;
}

namespace ui {

class ChartCanvas;

class FloatingBox : public QFrame {
  public:
    // What the release of a drag calls; the box's own end of a drag when
    // none is given.
    using Release = std::function<void(Workstation&, int Button, double X, double Y)>;
    FloatingBox(Workstation& ws, forms::Control& model, ChartCanvas* canvas, Release release = {});

    // Where the caller puts the box's controls.
    QWidget* body() const { return body_; }
    QLabel* titleStrip() const { return strip_; }
    // Stands at the model's place by the canvas's present scale, on top.
    void place();

  protected:
    bool eventFilter(QObject* watched, QEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    // Clicks on the box are the box's: none reaches the chart under it.
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;

  private:
    // Tells the model how much of the canvas the box takes, in twips.
    void tellSize();
    bool dragEvent(QEvent* e);
    Workstation& ws_;
    forms::Control& model_;
    ChartCanvas* canvas_;
    Release release_;
    QLabel* strip_ = nullptr;
    QWidget* body_ = nullptr;
};

} // namespace ui
