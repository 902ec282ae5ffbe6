#include "apps/k4ctl/SignsCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>

#include "apps/k4ctl/Services.h"
#include "apps/k4ctl/SignConfig.h"
#include "k4cmndlg/clients/CK4CmnSS.h"

namespace k4ctl {

/// The answer as it grows, service by service.
class SignsCommand::Listing {
 public:
    /// @param named whether words have to say which service they are about.
    explicit Listing(bool named) : m_named(named) {}

    /// Adds all signs of a service.
    void Add(const std::string& service) {
        CK4CmnSS client;
        const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
        if (!client.ConnectService(service)) {
            Fail(ExitCode::Unavailable, service, {}, client.GetLastError());
            if (const std::string hint = ConfiguredInstead(service); !hint.empty()) {
                m_answer.words.push_back(hint);
            }
            return;
        }
        std::vector<std::string> signs;
        if (!client.GetSignList(signs)) {
            Fail(ExitCode::Refused, service, {}, client.GetLastError());
            return;
        }
        for (const std::string& sign : signs) {
            AddSign(client, service, sign);
        }
    }

    Answer Finished() {
        if (!m_table.IsEmpty()) {
            m_answer.Say(m_table);
        } else if (m_failures.isEmpty()) {
            m_answer.Say("There are no signs.");
        }
        m_answer.json.insert(QStringLiteral("signs"), m_signs);
        m_answer.json.insert(QStringLiteral("failures"), m_failures);
        return m_answer;
    }

 private:
    void AddSign(CK4CmnSS& client, const std::string& service, const std::string& sign) {
        SignConfig config;
        if (!config.Read(client, sign)) {
            Fail(ExitCode::Refused, service, sign, client.GetLastError());
            m_table.Add({service, sign, "-", "-", "-", "-"});
            return;
        }
        m_table.Add({service, sign, config.SizeText(), config.ColorText(), config.PixelText(),
                     config.DimmingText()});
        QJsonObject object{{QStringLiteral("service"), QString::fromStdString(service)},
                           {QStringLiteral("sign"), QString::fromStdString(sign)}};
        config.AddTo(object);
        m_signs.append(object);
    }

    void Fail(ExitCode code, const std::string& service, const std::string& sign,
              const std::string& words) {
        std::string where = m_named ? service + ": " : "";
        where += sign.empty() ? "" : sign + ": ";
        m_answer.Fail(code, where + words);
        QJsonObject failure{{QStringLiteral("service"), QString::fromStdString(service)},
                            {QStringLiteral("words"), QString::fromStdString(words)}};
        if (!sign.empty()) {
            failure.insert(QStringLiteral("sign"), QString::fromStdString(sign));
        }
        m_failures.append(failure);
    }

    bool m_named;
    Answer m_answer;
    QJsonArray m_signs;
    QJsonArray m_failures;
    Table m_table{
        {{"SERVICE"}, {"SIGN"}, {"SIZE", Table::Align::Right}, {"COLOR"}, {"PIXEL"}, {"DIMMING"}}};
};

CommandText SignsCommand::Text() const {
    return {"signs", "List the signs of every configured service, or of one",
            "  k4ctl signs                 all signs of all services\n"
            "  k4ctl signs Local           the signs of this machine\n"
            "  k4ctl signs --json          the same for a program\n"};
}

void SignsCommand::AddArguments(CLI::App& app) {
    app.add_option_function<std::string>(
           "SERVICE,-s,--service",
           [this](const std::string& service) {
               m_service = service;
               m_one = true;
           },
           "The service to list; without it every configured one")
        ->type_name("NAME");
}

Answer SignsCommand::Run() const {
    if (m_one) {
        Listing listing(false);
        listing.Add(m_service);
        return listing.Finished();
    }
    std::vector<std::string> services;
    if (!ConfiguredServices(services)) {
        Answer answer;
        answer.Fail(ExitCode::Refused, "the configured services can't be read");
        return answer;
    }
    Listing listing(true);
    for (const std::string& service : services) {
        listing.Add(service);
    }
    return listing.Finished();
}

}  // namespace k4ctl
