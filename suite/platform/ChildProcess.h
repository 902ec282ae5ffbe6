#pragma once

#include <sys/types.h>
#include <sys/wait.h>

namespace k4suite {

/// A process that this one started. Asking whether it runs reaps it, once it has ended; destroying
/// the object doesn't touch it.
/// Threads: one at a time.
class ChildProcess {
 public:
    explicit ChildProcess(pid_t process) : m_process(process) {}
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool IsRunning() {
        // Anything but 0: it has ended, or is somebody else's by now.
        m_isRunning = m_isRunning && waitpid(m_process, nullptr, WNOHANG) == 0;
        return m_isRunning;
    }

 private:
    const pid_t m_process;
    bool m_isRunning = true;
};

}  // namespace k4suite
