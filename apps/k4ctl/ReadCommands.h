#pragma once

#include "apps/k4ctl/SignCommand.h"

namespace k4ctl {

/// `status SIGN`: what the sign does: its state, the sequence and the schedule that run, the frame,
/// the play mode with its param, and whether the default sequence plays.
class StatusCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void OnSign(CK4CmnSS& client, Answer& answer) const override;
};

/// `config SIGN`: size, technologies and dimming.
class ConfigCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void OnSign(CK4CmnSS& client, Answer& answer) const override;
};

/// `windows SIGN`: the sixteen sign windows: open or closed, the place counted from 1, and the sign
/// that each shows. A window that the service doesn't tell has no values.
class WindowsCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void OnSign(CK4CmnSS& client, Answer& answer) const override;
};

}  // namespace k4ctl
