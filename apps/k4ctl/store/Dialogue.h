#pragma once

#include <QJsonArray>
#include <chrono>
#include <string>
#include <vector>

#include "apps/k4ctl/Answer.h"
#include "apps/k4ctl/store/Terminal.h"
#include "k4cmndlg/frame/Prompt.h"
#include "suite/platform/FileOperationUi.h"

namespace k4ctl {

/// How questions are answered.
enum class Replies {
    Ask,  ///< by the person at the terminal; where there is none, cautiously, and that is said
    Yes,
    No,
};

/// Questions, messages and progress of work on the store, on a terminal.
///
/// A message with nothing to choose is a failure of the answer. Questions and their answers are
/// kept for machines. A question that nobody could be asked is a failure too, since something stays
/// undone for that reason alone. After a StopRequest every question is answered cautiously.
///
/// A deletion for good is asked even where all is answered Yes, unless that is agreed to as well.
class Dialogue final : public k4cmn::Prompt, public k4suite::FileOperationUi {
 public:
    /// @param answer gets what there is to say; must outlive the object.
    Dialogue(const Terminal& terminal, Replies replies, bool mayDestroy, Answer& answer);

    k4cmn::MessageAnswer Ask(const k4cmn::Message& message) override;
    k4suite::FileAnswer Confirm(const k4suite::FileQuestion& question) override;
    void Begin(const std::string& title) override;
    bool Progress(std::uint64_t done, std::uint64_t total, const std::string& name) override;
    void End() override;

    /// The questions so far, each with "text" and "answer".
    const QJsonArray& Questions() const { return m_questions; }

 private:
    struct Choice {
        const char* word;
        int value;
    };

    struct Question {
        std::string text;
        std::vector<Choice> choices;
        int yes;     ///< the answer to all where it is Yes
        int no;      ///< the answer to all where it is No
        int usual;   ///< of a line without a word
        int nobody;  ///< where there is no line
    };

    int Choose(const Question& question);
    int ReadChoice(const Question& question);
    void ClearProgress();

    const Terminal m_terminal;
    const Replies m_replies;
    const bool m_mayDestroy;
    Answer& m_answer;
    QJsonArray m_questions;
    std::string m_title;
    bool m_isProgressShown = false;
    std::chrono::steady_clock::time_point m_shownAt;
};

/// The text of a message in one line, as the lines of the program are: a break becomes a blank, or
/// a colon where nothing ends before it.
std::string OneLine(const std::string& text);

}  // namespace k4ctl
