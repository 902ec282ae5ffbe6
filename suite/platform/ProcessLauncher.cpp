#include "suite/platform/ProcessLauncher.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "suite/platform/Descriptor.h"

namespace k4suite {

namespace {

/// What a started program takes over from this one: nothing open, no signal blocked or ignored.
class CleanStart {
 public:
    CleanStart() {
        posix_spawn_file_actions_init(&m_files);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_files, stream, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);

        sigset_t signals;
        posix_spawnattr_init(&m_attributes);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGXFSZ);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(
            &m_attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~CleanStart() {
        posix_spawn_file_actions_destroy(&m_files);
        posix_spawnattr_destroy(&m_attributes);
    }
    CleanStart(const CleanStart&) = delete;
    CleanStart& operator=(const CleanStart&) = delete;

    int Spawn(pid_t& process, char* const* arguments) {
        return posix_spawnp(&process, arguments[0], &m_files, &m_attributes, arguments, environ);
    }

 private:
    posix_spawn_file_actions_t m_files;
    posix_spawnattr_t m_attributes;
};

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
    std::vector<char*> words;
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);

    pid_t process = 0;
    if (const int error = CleanStart().Spawn(process, words.data()))
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
