#include "suite/platform/ProcessLauncher.h"

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "suite/platform/CleanStart.h"
#include "suite/platform/Descriptor.h"

namespace k4suite {

namespace {

/// @return whether the process ended within the time.
bool HasEnded(pid_t process, std::chrono::milliseconds patience) {
    using SteadyClock = std::chrono::steady_clock;
    // Not the C library's own function: its header in glibc 2.36 lacks the C linkage.
    const Descriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    const auto deadline = SteadyClock::now() + patience;
    int ready = -1;
    while (handle) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - SteadyClock::now()).count();
        pollfd wanted{handle.Get(), POLLIN, 0};
        ready = poll(&wanted, 1, static_cast<int>(std::max<decltype(left)>(left, 0)));
        if (ready >= 0 || errno != EINTR)
            break;
    }
    return ready > 0;
}

}  // namespace

ProcessLauncher::~ProcessLauncher() {
    Reap();
}

ProcessLauncher::Result ProcessLauncher::Start(const std::vector<std::string>& arguments,
                                               std::chrono::milliseconds patience) {
    Reap();
    if (arguments.empty())
        return {ENOENT, -1};
    pid_t process = 0;
    if (const int error = StartClean(arguments, {}, process))
        return {error, -1};

    int status = 0;
    if (patience.count() > 0 && HasEnded(process, patience)) {
        const bool isKnown = waitpid(process, &status, 0) == process && WIFEXITED(status);
        return {0, isKnown ? WEXITSTATUS(status) : -1};
    }
    m_running.push_back(process);
    return {0, -1};
}

void ProcessLauncher::Reap() {
    std::erase_if(m_running, [](pid_t process) {
        return waitpid(process, nullptr, WNOHANG) != 0;  // ended, or somebody else's by now
    });
}

}  // namespace k4suite
