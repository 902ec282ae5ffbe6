#include "apps/k4ctl/Answer.h"

#include <algorithm>

#include "apps/k4ctl/TerminalText.h"

namespace k4ctl {

void Answer::Say(const std::string& line) {
    text += Escaped(line) + "\n";
}

void Answer::Say(const Table& table) {
    text += table.Text();
}

void Answer::Fail(ExitCode with, const std::string& failure) {
    code = std::max(code, with);
    words.push_back(failure);
    const QString error = QStringLiteral("error");
    if (!json.contains(error)) {
        json.insert(error, QString::fromStdString(failure));
    }
}

}  // namespace k4ctl
