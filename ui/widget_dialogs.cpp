#include "ui/widget_dialogs.h"

#include "ui/colors.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

namespace ui {

QStringList dialogFilters(const QString& filter) {
    const QStringList parts = filter.split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        // The words shown are the description's own, less any patterns it
        // names; the patterns are those of the second half.
        const QString words = parts[i].section('(', 0, 0).trimmed();
        QStringList patterns;
        for (const QString& p : parts[i + 1].split(';', Qt::SkipEmptyParts))
            if (!p.trimmed().isEmpty()) patterns << p.trimmed();
        if (patterns.isEmpty()) continue;
        out << words + " (" + patterns.join(' ') + ")";
    }
    return out;
}

QString dialogPath(const QString& path) {
    QString p = path;
    p.replace('\\', '/');
    return QDir::cleanPath(p);
}

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
        box.setDefaultButton(QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes ? platform::Answer::Yes : platform::Answer::No;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return platform::Answer::Ok;
}

namespace {
QString runFileDialog(QFileDialog::AcceptMode mode, const QString& title, const QString& filter,
                      const QString& start) {
    QFileDialog dialog(nullptr, title);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    const QStringList filters = dialogFilters(filter);
    if (!filters.isEmpty()) dialog.setNameFilters(filters);
    const QString where = dialogPath(start);
    if (!where.isEmpty() && where != QStringLiteral(".")) {
        const QFileInfo info(where);
        if (info.isDir()) {
            dialog.setDirectory(where);
        } else {
            // A start name as well as a folder.
            dialog.setDirectory(info.absolutePath());
            dialog.selectFile(info.fileName());
        }
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}
} // namespace

QString WidgetDialogs::OpenFile(const QString& title, const QString& filter,
                                const QString& startDir) {
    return runFileDialog(QFileDialog::AcceptOpen, title, filter, startDir);
}

QString WidgetDialogs::SaveFile(const QString& title, const QString& filter,
                                const QString& startDir) {
    return runFileDialog(QFileDialog::AcceptSave, title, filter, startDir);
}

std::optional<long> WidgetDialogs::PickColor(const QString& title, long initial) {
    const QColor c = QColorDialog::getColor(toQColor(initial), nullptr, title);
    if (!c.isValid()) return std::nullopt;
    return fromQColor(c);
}

} // namespace ui
