#include "ui/look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace ui {

void applyLook() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"), 10);
    font.setStyleHint(QFont::SansSerif);
    QApplication::setFont(font);

    const QColor ground(0x2b, 0x2d, 0x30);
    const QColor field(0x1c, 0x1d, 0x1f);
    const QColor face(0x3a, 0x3d, 0x41);
    const QColor words(0xe8, 0xe8, 0xe8);
    const QColor quiet(0x80, 0x80, 0x80);
    QPalette p;
    p.setColor(QPalette::Window, ground);
    p.setColor(QPalette::WindowText, words);
    p.setColor(QPalette::Base, field);
    p.setColor(QPalette::AlternateBase, ground);
    p.setColor(QPalette::Text, words);
    p.setColor(QPalette::Button, face);
    p.setColor(QPalette::ButtonText, words);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::ToolTipBase, QColor(0xff, 0xf5, 0xc0));
    p.setColor(QPalette::ToolTipText, Qt::black);
    p.setColor(QPalette::PlaceholderText, quiet);
    p.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb3));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(0x7a, 0xb8, 0xff));
    p.setColor(QPalette::Light, face.lighter(130));
    p.setColor(QPalette::Midlight, face.lighter(115));
    p.setColor(QPalette::Mid, face.darker(130));
    p.setColor(QPalette::Dark, face.darker(160));
    p.setColor(QPalette::Shadow, Qt::black);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, quiet);
    QApplication::setPalette(p);
}

} // namespace ui
