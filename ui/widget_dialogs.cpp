#include "ui/widget_dialogs.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>

namespace ui {

namespace {
// "Data Base File (*.DB) | *.db;*.DB | All Files (*.*) | *.*" -> Qt's form.
QString qtFilter(const QString& filter) {
    const QStringList parts = filter.split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1].trimmed();
        patterns.replace(';', ' ');
        out << parts[i].trimmed().section('(', 0, 0).trimmed() + " (" + patterns + ")";
    }
    return out.join(";;");
}
} // namespace

platform::Answer WidgetDialogs::MsgBox(const QString& text, platform::Buttons buttons,
                                       const QString& title, platform::Icon icon) {
    QMessageBox box;
    box.setWindowTitle(title);
    box.setText(text);
    switch (icon) {
    case platform::Icon::Stop:
        box.setIcon(QMessageBox::Critical);
        break;
    case platform::Icon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case platform::Icon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case platform::Icon::Info:
        box.setIcon(QMessageBox::Information);
        break;
    }
    if (buttons == platform::Buttons::YesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        return box.exec() == QMessageBox::Yes ? platform::Answer::Yes : platform::Answer::No;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return platform::Answer::Ok;
}

QString WidgetDialogs::OpenFile(const QString& title, const QString& filter,
                                const QString& startDir) {
    return QFileDialog::getOpenFileName(nullptr, title, startDir, qtFilter(filter));
}

QString WidgetDialogs::SaveFile(const QString& title, const QString& filter,
                                const QString& startDir) {
    return QFileDialog::getSaveFileName(nullptr, title, startDir, qtFilter(filter));
}

std::optional<long> WidgetDialogs::PickColor(const QString& title, long initial) {
    const QColor start(initial & 0xFF, (initial >> 8) & 0xFF, (initial >> 16) & 0xFF);
    const QColor c = QColorDialog::getColor(start, nullptr, title);
    if (!c.isValid()) return std::nullopt;
    return c.red() | (c.green() << 8) | (static_cast<long>(c.blue()) << 16);
}

} // namespace ui
