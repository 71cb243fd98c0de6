#pragma once
// A dialog answerer for tests: answers come from a queue the test fills, and
// every box asked is kept so the test can check titles and texts.

#include "platform/dialogs.h"

#include <QStringList>
#include <deque>

namespace testkit {

class ScriptedDialogs : public platform::Dialogs {
  public:
    struct Box {
        QString title;
        QString text;
    };
    std::vector<Box> boxes;
    std::deque<platform::Answer> answers;
    std::deque<QString> files;
    std::deque<std::optional<long>> colors;

    platform::Answer MsgBox(const QString& text, platform::Buttons buttons, const QString& title,
                            platform::Icon) override {
        boxes.push_back({title, text});
        if (!answers.empty()) {
            auto a = answers.front();
            answers.pop_front();
            return a;
        }
        return buttons == platform::Buttons::YesNo ? platform::Answer::No : platform::Answer::Ok;
    }
    QString OpenFile(const QString& title, const QString&, const QString&) override {
        return nextFile(title);
    }
    QString SaveFile(const QString& title, const QString&, const QString&) override {
        return nextFile(title);
    }
    std::optional<long> PickColor(const QString& title, long) override {
        boxes.push_back({title, {}});
        if (colors.empty()) return std::nullopt;
        auto c = colors.front();
        colors.pop_front();
        return c;
    }

  private:
    QString nextFile(const QString& title) {
        boxes.push_back({title, {}});
        if (files.empty()) return {};
        QString f = files.front();
        files.pop_front();
        return f;
    }
};

} // namespace testkit
