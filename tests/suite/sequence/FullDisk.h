#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdint>

namespace k4test {

/// Keeps files of this process from growing over a size, as a full disk does.
class FullDisk {
 public:
    explicit FullDisk(std::uint64_t size) {
        m_formerHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        rlimit limit = m_former;
        limit.rlim_cur = size;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

 private:
    rlimit m_former{};
    void (*m_formerHandler)(int) = SIG_DFL;
};

}  // namespace k4test
