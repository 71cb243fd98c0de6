#pragma once
// A drawing surface in twips (1440 to the inch), as the chart and the
// chromatogram draw: straight lines, filled boxes and text at a current
// position, with the pen and font held as plain properties between calls.
// The labels and lines that float above a canvas (hour tags, text boxes,
// the coarse trace, the divider) are plain records the draw fills and the
// canvas shows on top when the picture is presented.
//
// Colours are 24-bit numbers with red in the low byte.

#include <QString>
#include <vector>

namespace station {

// A label control standing above the canvas: lbl_timedate(n),
// lbl_insert_txt(n).
struct FloatingLabel {
    double Left = 1;
    double Top = 1;
    bool Visible = false;
    QString Caption;
    QString Tag;
    long ForeColor = 0;
    double FontSize = 8;
};

// A line control standing above the canvas: ln_moveable(n), line_div.
struct LineControl {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    bool Visible = false;
    long BorderColor = 0;
    int BorderWidth = 1;
    // 11 leaves the line invisible on the canvas (it draws nothing).
    int DrawMode = 13;
};

// Everything standing above the canvas, shown with the picture.
struct CanvasControls {
    const std::vector<FloatingLabel>* labels[2] = {nullptr, nullptr};
    const std::vector<LineControl>* lines = nullptr;
    const LineControl* divider = nullptr;
    // What the mouse puts over the chart: the selection line and its
    // read-out.
    const LineControl* selecter = nullptr;
    const FloatingLabel* pointerLabel = nullptr;
};

class Canvas {
  public:
    virtual ~Canvas() = default;

    // Pen and font, read by the drawing calls.
    long ForeColor = 0;
    long BackColor = 0xFFFFFF;
    int DrawWidth = 1;
    bool FontTransparent = true;
    QString FontName = QStringLiteral("Arial");
    double FontSize = 8;
    bool FontBold = false;
    // Where Print puts its text (the top left corner of it); Print moves
    // CurrentY down one line, as the old canvas did.
    double CurrentX = 0;
    double CurrentY = 0;

    // Size of the drawing surface in twips.
    virtual double Width() const = 0;
    virtual double Height() const = 0;

    // Clears to BackColor (and the background picture) and puts the current
    // position at the top left.
    virtual void Cls() = 0;
    virtual void Line(double x1, double y1, double x2, double y2, long color) = 0;
    virtual void Box(double x1, double y1, double x2, double y2, long color) = 0;
    virtual void Print(const QString& text) = 0;
    virtual double TextWidth(const QString& text) const = 0;
    virtual double TextHeight(const QString& text) const = 0;
    // The draw is over: show it, with the controls above it.
    virtual void Present(const CanvasControls& controls) = 0;
};

} // namespace station
