#include "apps/k4ctl/Session.h"

#include <ostream>
#include <string>
#include <vector>

#include "apps/k4ctl/Console.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/EmbeddedSuite.h"
#include "suite/sample/SampleData.h"

namespace k4ctl {
namespace {

std::string HolderWords(const k4suite::DataHome& home, const k4suite::ServicesHolder& holder) {
    const std::string services = "the services of " + home.Path().string();
    if (holder.pid == 0) {
        return services + " can't be run by this process";
    }
    return services +
           k4cmn::Format(" are held by %s, process %ld", holder.program.c_str(), holder.pid);
}

void AddHolder(const k4suite::EmbeddedSuite& suite, Answer& answer) {
    const k4suite::ServicesHolder holder = suite.Holder();
    answer.words.push_back(HolderWords(suite.Home(), holder));
    if (holder.pid != 0) {
        answer.json.insert(
            QStringLiteral("holder"),
            QJsonObject{{QStringLiteral("pid"), static_cast<qint64>(holder.pid)},
                        {QStringLiteral("program"), QString::fromStdString(holder.program)}});
    }
}

}  // namespace

Answer RunOnHome(const k4suite::DataHome& home, const Command& command, std::ostream& err) {
    std::string problem;
    if (!k4suite::SeedSampleData(home, &problem)) {
        WriteError(problem, err);
    }
    const k4suite::EmbeddedSuite suite(home, "k4ctl");
    const std::vector<std::string> before = suite.Problems();
    for (const std::string& each : before) {
        WriteError(each, err);
    }

    Answer answer = command.Run();

    const std::vector<std::string> after = suite.Problems();
    for (std::size_t index = before.size(); index < after.size(); ++index) {
        // A change that isn't kept is gone when this process ends.
        if (answer.changed) {
            answer.Fail(ExitCode::Refused, after[index]);
        } else {
            WriteError(after[index], err);
        }
    }
    if (answer.code == ExitCode::Unavailable && !suite.RunsServices()) {
        AddHolder(suite, answer);
    }
    return answer;
}

}  // namespace k4ctl
