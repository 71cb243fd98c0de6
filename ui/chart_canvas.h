#pragma once
// The canvas of the gas chart: it only shows the picture the chart drew on
// its own persistent image, scaled to the widget. Mouse presses it does not
// use go on to the main screen. A change of size is told to the owner, who
// gives the image the new size at the next draw.

#include <QImage>
#include <QWidget>
#include <functional>

namespace ui {

class ChartCanvas : public QWidget {
  public:
    explicit ChartCanvas(QWidget* parent = nullptr);
    void setImage(const QImage& image);
    const QImage& image() const { return image_; }
    // Told of each new size of the widget, in pixels.
    std::function<void(QSize)> resized;

  protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

  private:
    QImage image_;
};

} // namespace ui
