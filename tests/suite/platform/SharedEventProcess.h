#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace k4test {

/// A party of a home's event in another process (SharedEventPeer). What it answers is waited for,
/// a minute at most.
class SharedEventProcess {
 public:
    SharedEventProcess(const std::filesystem::path& home, const std::string& name);
    ~SharedEventProcess();
    SharedEventProcess(const SharedEventProcess&) = delete;
    SharedEventProcess& operator=(const SharedEventProcess&) = delete;

    /// Sends a command.
    void Say(const std::string& command) const;
    /// The next line of its answers; empty if none comes.
    std::string Answer();
    /// Sends a command and gives its answer.
    std::string Ask(const std::string& command) {
        Say(command);
        return Answer();
    }

    /// Ends its input and waits for it. @return its exit code; -1 where it was killed.
    int End();
    /// Kills it, wherever it is.
    void Kill();
    /// Waits until it sleeps in the system.
    bool FallsAsleep() const;

 private:
    pid_t m_pid = -1;
    int m_input = -1;
    int m_output = -1;
    std::string m_read;
};

}  // namespace k4test
