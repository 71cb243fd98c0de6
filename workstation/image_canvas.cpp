#include "workstation/image_canvas.h"

#include "workstation/ink.h"

#include <QPen>
#include <algorithm>
#include <cmath>

namespace station {

namespace {

// A point is 20 twips.
constexpr double kTwipsPerPoint = 20;

} // namespace

QColor ToQColor(long color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

ImageCanvas::ImageCanvas(int widthPx, int heightPx, double widthTwips)
    : widthTwips_(widthTwips), scale_(1) {
    resize(widthPx, heightPx);
}

ImageCanvas::~ImageCanvas() = default;

void ImageCanvas::resize(int widthPx, int heightPx) {
    painter_.reset();
    widthPx = std::max(widthPx, 16);
    heightPx = std::max(heightPx, 16);
    scale_ = widthPx / widthTwips_;
    image_ = QImage(widthPx, heightPx, QImage::Format_RGB32);
    image_.fill(ToQColor(BackColor));
    fonts_.clear();
}

void ImageCanvas::setPicture(const QString& path) {
    // Asked at every draw: the file is read only when it is another one.
    if (path == picturePath_) return;
    picturePath_ = path;
    backdrop_ = path.isEmpty() ? QImage() : QImage(path);
}

double ImageCanvas::Height() const {
    return image_.height() / scale_;
}

QPainter& ImageCanvas::painter() {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing, false);
        penColor_ = -1;
        penWidth_ = -1;
    }
    return *painter_;
}

void ImageCanvas::applyPen() {
    if (penColor_ == ForeColor && penWidth_ == DrawWidth) return;
    penColor_ = ForeColor;
    penWidth_ = DrawWidth;
    // A width of one is the thinnest line the image shows; wider pens keep
    // their share of a screen pixel (15 twips) at this scale.
    const double w = DrawWidth <= 1 ? 0 : std::max(1.0, DrawWidth * 15 * scale_);
    QPen pen(ReadableOn(ForeColor, BackColor), w);
    pen.setCapStyle(Qt::FlatCap);
    painter_->setPen(pen);
}

void ImageCanvas::Cls() {
    QPainter& p = painter();
    p.fillRect(image_.rect(), ToQColor(BackColor));
    if (!backdrop_.isNull()) p.drawImage(image_.rect(), backdrop_);
    // The ink depends on the background, which may have changed.
    penColor_ = -1;
    CurrentX = 0;
    CurrentY = 0;
}

void ImageCanvas::Line(double x1, double y1, double x2, double y2, long color) {
    QPainter& p = painter();
    const long keep = ForeColor;
    ForeColor = color;
    applyPen();
    ForeColor = keep;
    p.drawLine(px(x1, y1), px(x2, y2));
    CurrentX = x2;
    CurrentY = y2;
}

void ImageCanvas::Box(double x1, double y1, double x2, double y2, long color) {
    painter().fillRect(QRectF(px(x1, y1), px(x2, y2)).normalized(), ToQColor(color));
}

const QFont& ImageCanvas::font() const {
    const QString key =
        FontName + QLatin1Char('/') + QString::number(FontSize) + (FontBold ? "b" : "");
    auto it = fonts_.find(key);
    if (it == fonts_.end()) {
        QFont f(FontName);
        // A fixed-column report asks for a typewriter face; where the named
        // one is missing, another of the same kind keeps the columns.
        f.setStyleHint(FontName.startsWith(QLatin1String("Courier")) ? QFont::TypeWriter
                                                                     : QFont::SansSerif);
        f.setPixelSize(
            std::max(1, static_cast<int>(std::lround(FontSize * kTwipsPerPoint * scale_ * 0.85))));
        f.setBold(FontBold);
        it = fonts_.emplace(key, f).first;
    }
    return it->second;
}

QFontMetricsF ImageCanvas::metrics() const {
    return QFontMetricsF(font(), &image_);
}

void ImageCanvas::Print(const QString& text) {
    QPainter& p = painter();
    p.setFont(font());
    const QFontMetricsF m = metrics();
    const QPointF at = px(CurrentX, CurrentY);
    if (!FontTransparent)
        p.fillRect(QRectF(at, QSizeF(m.horizontalAdvance(text), m.height())), ToQColor(BackColor));
    p.setPen(ReadableOn(ForeColor, BackColor));
    penColor_ = -1;
    p.drawText(QPointF(at.x(), at.y() + m.ascent()), text);
    CurrentY += m.height() / scale_;
}

double ImageCanvas::TextWidth(const QString& text) const {
    return metrics().horizontalAdvance(text) / scale_;
}

double ImageCanvas::TextHeight(const QString&) const {
    return metrics().height() / scale_;
}

void ImageCanvas::Present(const CanvasControls& controls) {
    painter_.reset();
    picture_ = image_.copy();
    QPainter p(&picture_);
    if (controls.divider && controls.divider->Visible) {
        const LineControl& l = *controls.divider;
        p.setPen(QPen(ReadableOn(l.BorderColor, BackColor), 0));
        p.drawLine(px(l.X1, l.Y1), px(l.X2, l.Y2));
    }
    if (controls.lines)
        for (const LineControl& l : *controls.lines) {
            // Drawing mode 11 leaves the pixels as they are.
            if (!l.Visible || l.DrawMode == 11) continue;
            p.setPen(QPen(ReadableOn(l.BorderColor, BackColor), 0));
            p.drawLine(px(l.X1, l.Y1), px(l.X2, l.Y2));
        }
    if (controls.selecter && controls.selecter->Visible) {
        const LineControl& l = *controls.selecter;
        p.setPen(
            QPen(ReadableOn(l.BorderColor, BackColor), std::max(1.0, l.BorderWidth * 15 * scale_)));
        p.drawLine(px(l.X1, l.Y1), px(l.X2, l.Y2));
    }
    const double keepSize = FontSize;
    const bool keepBold = FontBold;
    auto label = [&](const FloatingLabel& l, bool boxed) {
        if (!l.Visible || l.Caption.isEmpty()) return;
        FontSize = l.FontSize;
        FontBold = false;
        p.setFont(font());
        const QPointF at(l.Left * scale_, l.Top * scale_);
        if (boxed) {
            // The read-out stands on its own patch so that it reads over
            // any curve.
            const QFontMetricsF m = metrics();
            p.fillRect(QRectF(at, QSizeF(m.horizontalAdvance(l.Caption) + 4, m.height())),
                       QColor(255, 255, 225));
        }
        // On its own light patch a label keeps its colour; on the canvas it
        // is made readable against the background.
        p.setPen(boxed ? ToQColor(l.ForeColor) : ReadableOn(l.ForeColor, BackColor));
        p.drawText(QPointF(at.x() + (boxed ? 2 : 0), at.y() + metrics().ascent()), l.Caption);
    };
    for (const auto* labels : controls.labels) {
        if (!labels) continue;
        for (const FloatingLabel& l : *labels) label(l, false);
    }
    if (controls.pointerLabel) label(*controls.pointerLabel, true);
    FontSize = keepSize;
    FontBold = keepBold;
    p.end();
    if (shown) shown(picture_);
}

} // namespace station
