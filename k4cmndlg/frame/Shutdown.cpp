#include "k4cmndlg/frame/Shutdown.h"

#include "k4cmndlg/frame/contracts/PowerControl.h"

namespace k4cmn {

int ShutdownSystem(Prompt& prompt, const std::optional<std::string>& question, int reboot) {
    if (question) {
        const Message message{*question, {}, MessageButtons::YesNo, MessageIcon::Question};
        if (prompt.Ask(message) != MessageAnswer::Yes)
            return 0;
    }
    PowerControl& power = Provided<PowerControl>::Current();
    if (!power.OpenProcessToken() || !power.LookupPrivilege("SeShutdownPrivilege"))
        return 0;
    if (power.AdjustPrivilege(1) != 0)
        return 0;
    const int started = power.ExitSystem(reboot != 0 ? EWX_REBOOT : EWX_SHUTDOWN);
    power.AdjustPrivilege(0);
    return started;
}

}  // namespace k4cmn
