#include "apps/k4ctl/Console.h"

#include <QJsonDocument>
#include <ostream>

#include "apps/k4ctl/TerminalText.h"

namespace k4ctl {

void WriteError(const std::string& words, std::ostream& err) {
    err << "k4ctl: " << Escaped(words) << "\n";
}

ExitCode WriteAnswer(const Answer& answer, bool json, std::ostream& out, std::ostream& err) {
    if (json) {
        out << EscapedJson(QJsonDocument(answer.json).toJson().toStdString());
    } else {
        out << answer.text;
    }
    out.flush();
    for (const std::string& words : answer.words) {
        WriteError(words, err);
    }
    if (!out && answer.code == ExitCode::Done) {
        WriteError("the answer couldn't be written", err);
        return ExitCode::Refused;
    }
    return answer.code;
}

}  // namespace k4ctl
