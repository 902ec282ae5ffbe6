#include "k4cmndlg/frame/Shutdown.h"

#include <exception>

#include "k4cmndlg/frame/contracts/PowerControl.h"

namespace k4cmn {

namespace {

/// The privilege that was looked up, switched on for the life of the object.
class EnabledPrivilege {
 public:
    explicit EnabledPrivilege(PowerControl& power)
        : m_power(power), m_isEnabled(power.AdjustPrivilege(1) == 0) {}
    ~EnabledPrivilege() {
        if (m_isEnabled)
            Disable();
    }
    EnabledPrivilege(const EnabledPrivilege&) = delete;
    EnabledPrivilege& operator=(const EnabledPrivilege&) = delete;

    explicit operator bool() const { return m_isEnabled; }

 private:
    void Disable() try { m_power.AdjustPrivilege(0); } catch (...) {
        // It ends with the process at the latest.
    }

    PowerControl& m_power;
    const bool m_isEnabled;
};

}  // namespace

int ShutdownSystem(Prompt& prompt, const std::optional<std::string>& question, int reboot) try {
    if (question) {
        const Message message{*question, {}, MessageButtons::YesNo, MessageIcon::Question};
        if (prompt.Ask(message) != MessageAnswer::Yes)
            return 0;
    }
    PowerControl& power = Provided<PowerControl>::Current();
    if (!power.OpenProcessToken() || !power.LookupPrivilege("SeShutdownPrivilege"))
        return 0;
    const EnabledPrivilege privilege(power);
    return privilege ? power.ExitSystem(reboot != 0 ? EWX_REBOOT : EWX_SHUTDOWN) : 0;
} catch (const std::exception&) {
    return 0;
}

}  // namespace k4cmn
