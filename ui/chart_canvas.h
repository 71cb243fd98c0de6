#pragma once
// The canvas of the gas chart: it shows the picture the chart drew on its
// own persistent image, scaled to the widget, and hands the mouse and the
// keys to the chart in twips of the canvas. A change of size is told to the
// owner, who gives the image the new size at the next draw.

#include <QImage>
#include <QPointF>
#include <QWidget>
#include <functional>

class Workstation;

namespace ui {

class ChartCanvas : public QWidget {
  public:
    explicit ChartCanvas(QWidget* parent = nullptr);
    // The chart the events go to; none leaves them to the screen.
    void attach(Workstation& ws) { ws_ = &ws; }
    void setImage(const QImage& image);
    const QImage& image() const { return image_; }
    // A widget point in twips of the chart's canvas: the picture fills the
    // widget whatever its pixel size, so each axis has its own scale.
    QPointF toTwips(QPointF px) const;
    // A point of the canvas in twips as a widget point, by the same scales.
    QPointF toPixels(QPointF twips) const;
    // Told of each new size of the widget, in pixels.
    std::function<void(QSize)> resized;

  protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;

  private:
    // Runs one event of the chart; a failure never leaves the view.
    template <class F> void handle(F f);
    void showCursor();
    Workstation* ws_ = nullptr;
    QImage image_;
};

} // namespace ui
