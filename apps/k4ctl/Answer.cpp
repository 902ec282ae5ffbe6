#include "apps/k4ctl/Answer.h"

#include <algorithm>

#include "apps/k4ctl/TerminalText.h"

namespace k4ctl {
namespace {

constexpr QLatin1String kError("error");

}  // namespace

void Answer::Say(const std::string& line) {
    text += Escaped(line) + "\n";
}

void Answer::Say(const Table& table) {
    text += table.Text();
}

void Answer::Fail(ExitCode with, const std::string& failure) {
    code = std::max(code, with);
    words.push_back(failure);
    if (!HasFailed()) {
        json.insert(kError, QString::fromStdString(failure));
    }
}

bool Answer::HasFailed() const {
    return json.contains(kError);
}

}  // namespace k4ctl
