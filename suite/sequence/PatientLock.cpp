#include "suite/sequence/PatientLock.h"

#include <sys/file.h>

#include <cerrno>
#include <thread>

namespace k4suite {

namespace {

bool TakeLock(int file, int operation, std::chrono::milliseconds patience) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kBetweenTries{2};
    const Clock::time_point end = Clock::now() + patience;
    while (flock(file, operation | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        if (errno != EWOULDBLOCK)
            return true;
        if (Clock::now() >= end)
            return false;
        // The system's own waiting has no end that could be set.
        std::this_thread::sleep_for(kBetweenTries);
    }
    return true;
}

}  // namespace

PatientLock::PatientLock(int file, Kind kind, std::chrono::milliseconds patience)
    : m_file(file), m_isHeld(TakeLock(file, kind == Kind::Shared ? LOCK_SH : LOCK_EX, patience)) {}

PatientLock::~PatientLock() {
    if (m_isHeld)
        flock(m_file, LOCK_UN);
}

}  // namespace k4suite
