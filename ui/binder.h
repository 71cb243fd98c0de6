#pragma once
// Keeps one widget and one model control in step, both ways, and turns the
// widget's events into calls of the handlers given at binding. The view
// holds no logic: whatever a press or an edit means is decided by the
// handler, which works on the model; the widget follows the model.

#include "forms/control.h"

#include <QChar>
#include <functional>

class QLabel;
class QWidget;

namespace ui {

// What a widget's events call; any of them may be empty.
struct Events {
    // A button press, a check box or option click, a click on a label.
    std::function<void()> click = {};
    // Enter in a text box.
    std::function<void()> enter = {};
    // Leaving a text box.
    std::function<void()> leave = {};
    // Enter in a text box, or leaving it.
    std::function<void()> commit = {};
    // Each edit of a text box by the operator.
    std::function<void()> change = {};
    // A double click with the left button.
    std::function<void()> dblClick = {};
    // A typed character; a widget with this handler does not show what is
    // typed (the live terminal shows only what comes back).
    std::function<void(QChar)> key = {};
};

// The object name of a control's widget: the control's name, and for an
// element of a control array its index after an underscore.
QString objectNameOf(const forms::Control& c);

// Binds w to c. The widget takes the control's state at once and follows
// every later change; the operator's changes go back into the control
// before the handler runs. The widget must not outlive the control.
void bind(QWidget* w, forms::Control& c, Events events = {});

// A label that shows only the caption of c (the words beside a text box,
// the title of a frame that is not a widget of its own).
void bindCaption(QLabel* label, forms::Control& c);

// The colour of a control on screen: back colour, and text colour where the
// program gives one. Button means the toolkit's own face.
void applyColors(QWidget* w, long back, long fore);

} // namespace ui
