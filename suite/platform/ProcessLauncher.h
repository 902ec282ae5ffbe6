#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace k4suite {

/// Starts other programs, which stay when this one goes. Nothing passes through a command shell.
/// Threads: one at a time.
class ProcessLauncher {
 public:
    struct Result {
        int error = 0;      ///< the system's error if it couldn't be started
        int exitCode = -1;  ///< -1 while it runs, and where it can't be told
    };

    ProcessLauncher() = default;
    ~ProcessLauncher();
    ProcessLauncher(const ProcessLauncher&) = delete;
    ProcessLauncher& operator=(const ProcessLauncher&) = delete;

    /// Starts a program in a session of its own, without input and output.
    /// @param arguments the program, looked for in PATH, and what it is given.
    /// @param patience  how long to wait for its end; 0 doesn't wait.
    Result Start(const std::vector<std::string>& arguments, std::chrono::milliseconds patience);

 private:
    void Reap();

    std::vector<pid_t> m_running;
};

}  // namespace k4suite
