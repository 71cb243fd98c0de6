#pragma once
// The canvas of the gas chart: it only shows the picture the chart draws on
// its own persistent image. Mouse presses it does not use go on to the main
// screen.

#include <QImage>
#include <QWidget>

namespace ui {

class ChartCanvas : public QWidget {
  public:
    explicit ChartCanvas(QWidget* parent = nullptr);
    void setImage(const QImage& image);
    const QImage& image() const { return image_; }

  protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

  private:
    QImage image_;
};

} // namespace ui
