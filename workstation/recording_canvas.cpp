#include "workstation/recording_canvas.h"

namespace station {

CanvasCall RecordingCanvas::call(CanvasCall::Op op) const {
    CanvasCall c;
    c.op = op;
    c.color = ForeColor;
    c.width = DrawWidth;
    c.fontSize = FontSize;
    c.bold = FontBold;
    c.transparent = FontTransparent;
    return c;
}

void RecordingCanvas::Cls() {
    calls.clear();
    CanvasCall c = call(CanvasCall::Op::Cls);
    c.color = BackColor;
    calls.push_back(c);
    CurrentX = 0;
    CurrentY = 0;
}

void RecordingCanvas::Line(double x1, double y1, double x2, double y2, long color) {
    shape(CanvasCall::Op::Line, x1, y1, x2, y2, color);
    CurrentX = x2;
    CurrentY = y2;
}

void RecordingCanvas::Box(double x1, double y1, double x2, double y2, long color) {
    shape(CanvasCall::Op::Box, x1, y1, x2, y2, color);
}

void RecordingCanvas::shape(CanvasCall::Op op, double x1, double y1, double x2, double y2,
                            long color) {
    CanvasCall c = call(op);
    c.x1 = x1;
    c.y1 = y1;
    c.x2 = x2;
    c.y2 = y2;
    c.color = color;
    calls.push_back(c);
}

void RecordingCanvas::Print(const QString& text) {
    CanvasCall c = call(CanvasCall::Op::Print);
    c.x1 = CurrentX;
    c.y1 = CurrentY;
    c.text = text;
    calls.push_back(c);
    CurrentY += TextHeight(text);
}

std::vector<CanvasCall>
RecordingCanvas::lines(const std::function<bool(const CanvasCall&)>& pick) const {
    std::vector<CanvasCall> out;
    for (const CanvasCall& c : calls)
        if (c.op == CanvasCall::Op::Line && (!pick || pick(c))) out.push_back(c);
    return out;
}

std::vector<CanvasCall>
RecordingCanvas::texts(const std::function<bool(const CanvasCall&)>& pick) const {
    std::vector<CanvasCall> out;
    for (const CanvasCall& c : calls)
        if (c.op == CanvasCall::Op::Print && (!pick || pick(c))) out.push_back(c);
    return out;
}

std::vector<CanvasCall> RecordingCanvas::printed(const QString& text) const {
    return texts([&](const CanvasCall& c) { return c.text == text; });
}

} // namespace station
