#include "apps/k4ctl/store/StoreCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "apps/k4ctl/store/StopRequest.h"

namespace k4ctl {

void StoreCommand::AddReplies(CLI::App& app) {
    m_asks = true;
    CLI::Option* const yes = app.add_flag("-y,--yes", m_yes, "Answer every question with yes");
    app.add_flag("-n,--no", m_no, "Answer every question with no")->excludes(yes);
}

Answer StoreCommand::Run() const {
    std::optional<StopRequest> stop;
    if (m_asks) {
        stop.emplace();
    }
    StoreSession session(m_home, m_terminal,
                         m_yes  ? Replies::Yes
                         : m_no ? Replies::No
                                : Replies::Ask,
                         m_mayDestroy);
    if (session.answer.code == ExitCode::Done) {
        Do(session);
    }
    session.Close();
    if (StopRequest::Came()) {
        session.answer.Fail(ExitCode::Refused, "Stopped.");
    }
    if (session.answer.HasFailed()) {
        session.answer.code = std::max(session.answer.code, CodeOfFailure());
    }
    return std::move(session.answer);
}

}  // namespace k4ctl
