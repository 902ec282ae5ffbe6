#include "tests/suite/platform/SharedEventProcess.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

namespace k4test {

namespace {

constexpr int kPatience = 60'000;

}  // namespace

SharedEventProcess::SharedEventProcess(const std::filesystem::path& home, const std::string& name) {
    int input[2];
    int output[2];
    EXPECT_EQ(pipe2(input, O_CLOEXEC), 0);
    EXPECT_EQ(pipe2(output, O_CLOEXEC), 0);
    const std::string place = home.string();
    m_pid = fork();
    if (m_pid == 0) {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        execl(SHARED_EVENT_PEER, SHARED_EVENT_PEER, place.c_str(), name.c_str(), nullptr);
        _exit(127);
    }
    close(input[0]);
    close(output[1]);
    m_input = input[1];
    m_output = output[0];
    EXPECT_EQ(Answer(), "open");
}

SharedEventProcess::~SharedEventProcess() {
    End();
    close(m_output);
}

void SharedEventProcess::Say(const std::string& command) const {
    const std::string line = command + "\n";
    EXPECT_EQ(write(m_input, line.data(), line.size()), static_cast<ssize_t>(line.size()));
}

std::string SharedEventProcess::Answer() {
    while (m_read.find('\n') == std::string::npos) {
        pollfd ready{m_output, POLLIN, 0};
        char bytes[256];
        const ssize_t count =
            poll(&ready, 1, kPatience) == 1 ? read(m_output, bytes, sizeof bytes) : 0;
        if (count <= 0)
            return {};
        m_read.append(bytes, static_cast<std::size_t>(count));
    }
    const std::size_t end = m_read.find('\n');
    const std::string line = m_read.substr(0, end);
    m_read.erase(0, end + 1);
    return line;
}

int SharedEventProcess::End() {
    if (m_pid < 0)
        return -1;
    close(m_input);
    int status = 0;
    EXPECT_EQ(waitpid(m_pid, &status, 0), m_pid);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void SharedEventProcess::Kill() {
    kill(m_pid, SIGKILL);
    End();
}

bool SharedEventProcess::FallsAsleep() const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
    while (std::chrono::steady_clock::now() < end) {
        std::ifstream stream("/proc/" + std::to_string(m_pid) + "/stat");
        std::string text;
        std::getline(stream, text);
        const std::size_t name = text.rfind(')');
        if (name != std::string::npos && text.substr(name + 2, 1) == "S")
            return true;
        std::this_thread::yield();
    }
    return false;
}

}  // namespace k4test
