#include "k4cmndlg/frame/ShutdownSystem.h"

#include <QApplication>
#include <exception>
#include <optional>
#include <string>

#include "k4cmndlg/frame/Shutdown.h"
#include "k4cmndlg/frame/StringTable.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"

int k4cmnShutdownSystem(const char* prompt, int reboot) try {
    k4cmn::WindowPrompt window(QApplication::activeWindow());
    const auto question = prompt ? std::optional<std::string>(prompt) : std::nullopt;
    return k4cmn::ShutdownSystem(window, question, reboot);
} catch (const std::exception&) {
    return 0;
}

int k4cmnShutdownSystem(std::uint32_t promptId, int reboot) try {
    if (promptId == 0)
        return k4cmnShutdownSystem(static_cast<const char*>(nullptr), reboot);
    return k4cmnShutdownSystem(k4cmn::LoadString(promptId).c_str(), reboot);
} catch (const std::exception&) {
    return 0;
}
