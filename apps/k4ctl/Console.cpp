#include "apps/k4ctl/Console.h"

#include <QJsonDocument>
#include <cerrno>
#include <ostream>

#include "apps/k4ctl/TerminalText.h"

namespace k4ctl {

void WriteError(const std::string& words, std::ostream& err) {
    err << "k4ctl: " << Escaped(words) << "\n";
}

ExitCode WriteAnswer(const Answer& answer, bool json, std::ostream& out, std::ostream& err) {
    errno = 0;
    if (json) {
        out << EscapedJson(QJsonDocument(answer.json).toJson().toStdString());
    } else {
        out << answer.text;
    }
    out.flush();
    // A reader that has seen enough isn't worth words.
    const bool cutOff = !out && errno == EPIPE;
    for (const std::string& words : answer.words) {
        WriteError(words, err);
    }
    if (!out && answer.code == ExitCode::Done) {
        if (!cutOff) {
            WriteError("the answer couldn't be written", err);
        }
        return ExitCode::Refused;
    }
    return answer.code;
}

}  // namespace k4ctl
