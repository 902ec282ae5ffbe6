#include "suite/settings/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace k4suite {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLongestPause{16};

}  // namespace

FileLock::FileLock(const std::filesystem::path& path, milliseconds patience) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0)
        return;
    // Asked for again and again, since a wait inside the system has no end if the holder is
    // stopped.
    const auto end = std::chrono::steady_clock::now() + patience;
    milliseconds pause{1};
    while (flock(file, LOCK_EX | LOCK_NB) != 0) {
        const bool isTaken = errno == EWOULDBLOCK || errno == EINTR;
        if (!isTaken || std::chrono::steady_clock::now() >= end) {
            close(file);
            return;
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, kLongestPause);
    }
    m_file = file;
}

FileLock::~FileLock() {
    if (m_file >= 0)
        close(m_file);
}

}  // namespace k4suite
