#pragma once
// What an operator does to a widget, sent as the toolkit's own events: keys
// typed, Enter, leaving a field, a mouse press.

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace uitest {

inline void type(QWidget* w, const QString& text) {
    for (QChar ch : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(ch));
        QApplication::sendEvent(w, &down);
        QKeyEvent up(QEvent::KeyRelease, 0, Qt::NoModifier, QString(ch));
        QApplication::sendEvent(w, &up);
    }
}

inline void key(QWidget* w, Qt::Key k, const QString& text = {}) {
    QKeyEvent down(QEvent::KeyPress, k, Qt::NoModifier, text);
    QApplication::sendEvent(w, &down);
    QKeyEvent up(QEvent::KeyRelease, k, Qt::NoModifier, text);
    QApplication::sendEvent(w, &up);
}

inline void enter(QWidget* w) {
    key(w, Qt::Key_Return, QStringLiteral("\r"));
}

inline void leave(QWidget* w) {
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(w, &out);
}

inline void press(QWidget* w, Qt::MouseButton button, QPoint at = {5, 5}) {
    QMouseEvent e(QEvent::MouseButtonPress, at, w->mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

inline void release(QWidget* w, Qt::MouseButton button, QPoint at = {5, 5}) {
    QMouseEvent e(QEvent::MouseButtonRelease, at, w->mapToGlobal(at), button, Qt::NoButton,
                  Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

// Press and release, then the second press the toolkit reports as a double
// click, and its release.
inline void doubleClick(QWidget* w, Qt::MouseButton button, QPoint at = {5, 5}) {
    press(w, button, at);
    release(w, button, at);
    QMouseEvent twice(QEvent::MouseButtonDblClick, at, w->mapToGlobal(at), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &twice);
    release(w, button, at);
}

} // namespace uitest
