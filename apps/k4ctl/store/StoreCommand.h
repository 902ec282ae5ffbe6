#pragma once

#include <utility>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/store/StoreSession.h"

namespace k4ctl {

/// A command on the sign file store of a data home. It works through what the file selection dialog
/// works through, without services.
class StoreCommand : public Command {
 public:
    StoreCommand(k4suite::DataHome home, const Terminal& terminal)
        : m_home(std::move(home)), m_terminal(terminal) {}

    bool UsesServices() const final { return false; }
    Answer Run() const final;

 protected:
    const k4suite::DataHome& Home() const { return m_home; }
    /// Does what was asked for; the session's answer is the command's.
    virtual void Do(StoreSession& session) const = 0;
    /// How a failure ends the program at least.
    virtual ExitCode CodeOfFailure() const { return ExitCode::Refused; }
    /// Declares --yes and --no: the command asks, and stops between files where it is to stop.
    void AddReplies(CLI::App& app);

    bool m_mayDestroy = false;  ///< --yes goes for deleting for good too

 private:
    const k4suite::DataHome m_home;
    const Terminal m_terminal;
    bool m_asks = false;
    bool m_yes = false;
    bool m_no = false;
};

}  // namespace k4ctl
