#pragma once

#include <chrono>
#include <filesystem>

namespace k4suite {

/// A lock that one holder at a time has, among all processes and all threads. It is a file; the
/// file stays, and the lock goes with the object or with its process.
/// Threads: an object belongs to one thread.
class FileLock {
 public:
    /// Waits for the lock.
    /// @param path    the lock's file; its folder must exist.
    /// @param patience how long to wait at most.
    FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Whether the wait ended with the lock.
    bool IsHeld() const { return m_file >= 0; }

 private:
    int m_file = -1;
};

}  // namespace k4suite
