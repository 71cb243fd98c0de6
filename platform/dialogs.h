#pragma once
// Message boxes and the common dialogs. The desktop shows real ones; a
// workstation without a screen (tools, tests) is given another answerer.

#include <QString>
#include <optional>

namespace platform {

enum class Buttons { Ok, YesNo };
enum class Icon { Info, Stop, Question, Exclamation };
enum class Answer { Ok, Yes, No, Cancel };

class Dialogs {
  public:
    virtual ~Dialogs() = default;
    virtual Answer MsgBox(const QString& text, Buttons buttons, const QString& title,
                          Icon icon) = 0;
    // The chosen file, or empty when the dialog was cancelled.
    virtual QString OpenFile(const QString& title, const QString& filter,
                             const QString& startDir) = 0;
    virtual QString SaveFile(const QString& title, const QString& filter,
                             const QString& startDir) = 0;
    // A colour (red in the low byte), or nothing when cancelled.
    virtual std::optional<long> PickColor(const QString& title, long initial) = 0;
};

// The answerer of a workstation that has no screen: every box is answered
// with No (or OK where that is all there is), every file dialog is cancelled.
// It keeps the last box so the caller's log can say what was asked.
class QuietDialogs : public Dialogs {
  public:
    Answer MsgBox(const QString& text, Buttons buttons, const QString& title, Icon) override {
        lastTitle = title;
        lastText = text;
        return buttons == Buttons::YesNo ? Answer::No : Answer::Ok;
    }
    QString OpenFile(const QString&, const QString&, const QString&) override { return {}; }
    QString SaveFile(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<long> PickColor(const QString&, long) override { return std::nullopt; }
    QString lastTitle;
    QString lastText;
};

} // namespace platform
