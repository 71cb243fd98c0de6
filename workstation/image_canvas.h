#pragma once
// The canvas on a persistent image: QPainter on a QImage, twips mapped to
// pixels by one scale. The draw paints the image once; a view only shows the
// presented picture (the image with the floating controls on it), scaled to
// its widget.

#include "workstation/canvas.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <functional>
#include <map>
#include <memory>

namespace station {

class ImageCanvas : public Canvas {
  public:
    // widthTwips twips across `widthPx` pixels; the height follows from the
    // pixels at the same scale.
    ImageCanvas(int widthPx, int heightPx, double widthTwips);
    ~ImageCanvas() override;

    // A new pixel size (the view was resized); the picture is kept until
    // the next draw.
    void resize(int widthPx, int heightPx);
    // The background picture, drawn by Cls under the chart; an empty path
    // or a file that does not load leaves the plain colour.
    void setPicture(const QString& path);

    double Width() const override { return widthTwips_; }
    double Height() const override;
    void Cls() override;
    void Line(double x1, double y1, double x2, double y2, long color) override;
    void Box(double x1, double y1, double x2, double y2, long color) override;
    void Print(const QString& text) override;
    double TextWidth(const QString& text) const override;
    double TextHeight(const QString& text) const override;
    void Present(const CanvasControls& controls) override;

    // The painted image, without the floating controls.
    const QImage& image() const { return image_; }
    // What the last Present showed.
    const QImage& picture() const { return picture_; }
    double pixelsPerTwip() const { return scale_; }
    // Told of each new picture.
    std::function<void(const QImage&)> shown;

  private:
    QPainter& painter();
    void applyPen();
    const QFont& font() const;
    QFontMetricsF metrics() const;
    QPointF px(double x, double y) const { return {x * scale_, y * scale_}; }

    double widthTwips_;
    double scale_;
    QImage image_;
    QImage picture_;
    QImage backdrop_;
    QString picturePath_;
    std::unique_ptr<QPainter> painter_;
    long penColor_ = -1;
    int penWidth_ = -1;
    mutable std::map<QString, QFont> fonts_;
};

// A colour number (red in the low byte) as a Qt colour.
QColor ToQColor(long color);

} // namespace station
