#pragma once
// A canvas that keeps every call it is given, with the pen and font of the
// moment, so that a check can ask what was drawn where. Text is measured at
// a fixed 90 twips a character and 195 twips a line, whatever the font.

#include "workstation/canvas.h"

#include <functional>
#include <vector>

namespace station {

struct CanvasCall {
    enum class Op { Cls, Line, Box, Print };
    Op op = Op::Cls;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    long color = 0;
    int width = 1;
    QString text;
    double fontSize = 0;
    bool bold = false;
    bool transparent = true;
};

class RecordingCanvas : public Canvas {
  public:
    explicit RecordingCanvas(double widthTwips = 12000, double heightTwips = 9000)
        : width_(widthTwips), height_(heightTwips) {}

    double Width() const override { return width_; }
    double Height() const override { return height_; }
    void setHeight(double h) { height_ = h; }
    void Cls() override;
    void Line(double x1, double y1, double x2, double y2, long color) override;
    void Box(double x1, double y1, double x2, double y2, long color) override;
    void Print(const QString& text) override;
    double TextWidth(const QString& text) const override { return 90.0 * text.size(); }
    double TextHeight(const QString&) const override { return 195; }
    void Present(const CanvasControls&) override { ++presented; }

    // The calls since the last Cls (which is kept as the first).
    std::vector<CanvasCall> calls;
    int presented = 0;

    std::vector<CanvasCall> lines(const std::function<bool(const CanvasCall&)>& pick = {}) const;
    std::vector<CanvasCall> texts(const std::function<bool(const CanvasCall&)>& pick = {}) const;
    // The printed texts that equal `text`.
    std::vector<CanvasCall> printed(const QString& text) const;

  private:
    CanvasCall call(CanvasCall::Op op) const;
    void shape(CanvasCall::Op op, double x1, double y1, double x2, double y2, long color);
    double width_;
    double height_;
};

} // namespace station
