#pragma once

#include <QDBusConnection>
#include <optional>

#include "k4cmndlg/frame/contracts/PowerControl.h"

namespace k4suite {

/// Ends the system through logind, the way that a person at the machine may.
///
/// The steps of the contract and what they are here:
/// - the token: the bus is there, and on it logind or somebody who can start it;
/// - the privilege, of which there is one, "SeShutdownPrivilege": logind says of powering off or of
///   rebooting that it can be done ("yes") or can be done after asking for a password
///   ("challenge");
/// - switching it on: ExitSystem() is let through from then on;
/// - the end: PowerOff or Reboot, with a password question where it takes one. The call waits two
///   minutes for that.
/// Threads: one caller at a time.
class LogindPower final : public k4cmn::PowerControl {
 public:
    /// Works on the system bus, which is first touched by OpenProcessToken().
    LogindPower() = default;
    explicit LogindPower(const QDBusConnection& bus) : m_bus(bus) {}

    int OpenProcessToken() override;
    int LookupPrivilege(const char* name) override;
    std::uint32_t AdjustPrivilege(int enable) override;
    int ExitSystem(std::uint32_t how) override;

 private:
    bool Can(const char* question);

    std::optional<QDBusConnection> m_bus;
    bool m_isOpen = false;
    bool m_canPowerOff = false;
    bool m_canReboot = false;
    bool m_isEnabled = false;
};

}  // namespace k4suite
