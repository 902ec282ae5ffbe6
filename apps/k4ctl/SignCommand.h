#pragma once

#include <string>

#include "apps/k4ctl/Command.h"
#include "k4cmndlg/clients/CK4CmnSS.h"

namespace k4ctl {

/// A command on one sign: connects to the sign's service once, and hands the connected client on.
/// The lock of the clients is held all the while, so that every call goes to that service.
class SignCommand : public Command {
 public:
    void AddArguments(CLI::App& app) final;
    /// Where connecting fails: the client's words, code Unavailable, and the configured services if
    /// the name isn't one of them. For machines every answer has "service" and "sign".
    Answer Run() const final;

 protected:
    /// Declares what the command takes behind the sign's name.
    virtual void AddFurtherArguments(CLI::App& app);
    /// Does the work, by plain overloads of the connected client.
    virtual void OnSign(CK4CmnSS& client, Answer& answer) const = 0;

    const std::string& Sign() const { return m_sign; }

    /// Puts the failure of the client's last call into the answer.
    static void Refused(CK4CmnSS& client, Answer& answer);
    /// Ends a command that changes something: "failed" or, for people, a line "SIGN: did" and, for
    /// machines, "done".
    void Finish(int result, CK4CmnSS& client, const std::string& did, Answer& answer) const;

 private:
    std::string m_service = "Local";
    std::string m_sign;
};

}  // namespace k4ctl
