#include "apps/k4ctl/SignCommand.h"

#include <CLI/CLI.hpp>

#include "apps/k4ctl/Services.h"

namespace k4ctl {
void SignCommand::AddFurtherArguments(CLI::App&) {}

void SignCommand::AddArguments(CLI::App& app) {
    app.add_option("SIGN", m_sign, "Name of the sign")->required();
    AddFurtherArguments(app);
    app.add_option("-s,--service", m_service,
                   "The service that has the sign; without it Local, which is this machine")
        ->type_name("NAME");
}

Answer SignCommand::Run() const {
    Answer answer;
    answer.json.insert(QStringLiteral("service"), QString::fromStdString(m_service));
    answer.json.insert(QStringLiteral("sign"), QString::fromStdString(m_sign));

    CK4CmnSS client;
    const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
    if (!client.ConnectService(m_service)) {
        answer.Fail(ExitCode::Unavailable, client.GetLastError());
        if (const std::string hint = ConfiguredInstead(m_service); !hint.empty()) {
            answer.words.push_back(hint);
        }
        return answer;
    }
    OnSign(client, answer);
    return answer;
}

void SignCommand::Refused(CK4CmnSS& client, Answer& answer) {
    answer.Fail(ExitCode::Refused, client.GetLastError());
}

void SignCommand::Finish(int result, CK4CmnSS& client, const std::string& did,
                         Answer& answer) const {
    if (!result) {
        Refused(client, answer);
        return;
    }
    answer.changed = true;
    answer.json.insert(QStringLiteral("done"), true);
    answer.Say(m_sign + ": " + did);
}

}  // namespace k4ctl
