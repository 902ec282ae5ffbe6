#include "apps/k4ctl/store/Dialogue.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <string_view>

#include "apps/k4ctl/Names.h"
#include "apps/k4ctl/TerminalText.h"
#include "apps/k4ctl/store/StopRequest.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4suite::FileAnswer;

constexpr std::chrono::milliseconds kBetweenShows{100};
constexpr std::size_t kShownName = 40;

/// The title of the shell's deletions, whose second question is about deleting for good.
constexpr const char* kDeletion = "Delete";

template <class Value>
constexpr int Number(Value value) {
    return static_cast<int>(value);
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    text.remove_suffix(text.size() - std::min(text.find_last_not_of(' ') + 1, text.size()));
    return text;
}

}  // namespace

std::string OneLine(const std::string& text) {
    std::string line;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view piece = Trimmed(std::string_view(text).substr(at, end - at));
        if (!piece.empty() && !line.empty()) {
            const bool isEnded = std::string_view(":.?!").find(line.back()) != std::string::npos;
            line += isEnded ? " " : ": ";
        }
        line += piece;
        at = end + 1;
    }
    return line;
}

Dialogue::Dialogue(const Terminal& terminal, Replies replies, bool mayDestroy, Answer& answer)
    : m_terminal(terminal), m_replies(replies), m_mayDestroy(mayDestroy), m_answer(answer) {}

MessageAnswer Dialogue::Ask(const k4cmn::Message& message) {
    const Choice ok{"yes", Number(MessageAnswer::Ok)};
    const Choice yes{"yes", Number(MessageAnswer::Yes)};
    const Choice no{"no", Number(MessageAnswer::No)};
    const Choice retry{"retry", Number(MessageAnswer::Retry)};
    const Choice cancel{"cancel", Number(MessageAnswer::Cancel)};
    const Choice notOk{"no", cancel.value};
    const int cautious = Number(k4cmn::CautiousAnswer(message.buttons));
    const auto choose = [&](const std::vector<Choice>& choices) {
        return static_cast<MessageAnswer>(Choose(
            {message.text, choices, choices[0].value, choices[1].value, cautious, cautious}));
    };
    switch (message.buttons) {
        case MessageButtons::OkCancel:
            return choose({ok, notOk});
        case MessageButtons::RetryCancel:
            return choose({retry, cancel});
        case MessageButtons::YesNo:
            return choose({yes, no});
        case MessageButtons::YesNoCancel:
            return choose({yes, no, cancel});
        case MessageButtons::Ok:
            break;
    }
    m_answer.Fail(ExitCode::Refused, OneLine(message.text));
    return MessageAnswer::Ok;
}

FileAnswer Dialogue::Confirm(const k4suite::FileQuestion& question) {
    const bool destroys = question.final && question.title == kDeletion;
    const FileAnswer no = question.several ? FileAnswer::NoToAll : FileAnswer::No;
    FileAnswer yes = question.several ? FileAnswer::YesToAll : FileAnswer::Yes;
    if (destroys && !m_mayDestroy && m_replies == Replies::Yes) {
        m_answer.Fail(ExitCode::Refused, OneLine(question.text) + " --force answers yes.");
        yes = no;
    }
    Question asked{question.text,
                   {{"yes", Number(FileAnswer::Yes)}, {"no", Number(FileAnswer::No)}},
                   Number(yes),
                   Number(no),
                   Number(FileAnswer::No),
                   Number(StopRequest::Came() ? FileAnswer::Cancel : no)};
    if (question.several) {
        asked.choices.push_back({"all", Number(FileAnswer::YesToAll)});
        asked.choices.push_back({"none", Number(FileAnswer::NoToAll)});
    }
    asked.choices.push_back({"cancel", Number(FileAnswer::Cancel)});
    return static_cast<FileAnswer>(Choose(asked));
}

int Dialogue::Choose(const Question& question) {
    int value = question.nobody;
    if (StopRequest::Came()) {
        return value;
    }
    if (m_replies != Replies::Ask) {
        value = m_replies == Replies::Yes ? question.yes : question.no;
    } else if (m_terminal.canAsk) {
        value = ReadChoice(question);
    } else {
        m_answer.Fail(ExitCode::Refused,
                      OneLine(question.text) + " Nobody can be asked; --yes or --no answers.");
    }
    const auto choice = std::find_if(question.choices.begin(), question.choices.end(),
                                     [&](const Choice& each) { return each.value == value; });
    m_questions.append(QJsonObject{{QStringLiteral("text"), k4cmn::ToQt(question.text)},
                                   {QStringLiteral("answer"), QLatin1String(choice->word)}});
    return value;
}

int Dialogue::ReadChoice(const Question& question) {
    ClearProgress();
    std::string words;
    std::string usual;
    for (const Choice& each : question.choices) {
        words += (words.empty() ? "" : "/") + std::string(each.word);
        usual = each.value == question.usual ? each.word : usual;
    }
    while (true) {
        m_terminal.err << Escaped(OneLine(question.text)) << " (" << words << ") [" << usual << "] "
                       << std::flush;
        std::string line;
        const bool isThere = m_terminal.input < 0 || StopRequest::WaitForInput(m_terminal.input);
        if (!isThere || !std::getline(m_terminal.in, line)) {
            m_terminal.in.clear();
            m_terminal.err << "\n";
            return question.nobody;
        }
        line = OneLine(line);
        if (line.empty()) {
            return question.usual;
        }
        for (const bool isWhole : {true, false}) {
            for (const Choice& each : question.choices) {
                const std::string word = each.word;
                if (SameWord(isWhole ? word : word.substr(0, line.size()), line)) {
                    return each.value;
                }
            }
        }
    }
}

void Dialogue::Begin(const std::string& title) {
    m_title = title;
    m_shownAt = std::chrono::steady_clock::now();
}

bool Dialogue::Progress(std::uint64_t done, std::uint64_t total, const std::string& name) {
    const auto now = std::chrono::steady_clock::now();
    if (m_terminal.showsProgress && now - m_shownAt >= kBetweenShows) {
        const std::uint64_t percent = total ? std::min<std::uint64_t>(done * 100 / total, 100) : 0;
        m_terminal.err << "\r"
                       << k4cmn::Format("%s %3llu%% ", m_title.c_str(),
                                        static_cast<unsigned long long>(percent))
                       << k4cmn::FirstCharacters(Escaped(name), kShownName) << "\x1b[K"
                       << std::flush;
        m_isProgressShown = true;
        m_shownAt = now;
    }
    return !StopRequest::Came();
}

void Dialogue::End() {
    ClearProgress();
}

void Dialogue::ClearProgress() {
    if (m_isProgressShown) {
        m_terminal.err << "\r\x1b[K" << std::flush;
        m_isProgressShown = false;
    }
}

}  // namespace k4ctl
