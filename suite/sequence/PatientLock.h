#pragma once

#include <chrono>

namespace k4suite {

/// Holds a lock on an open file, against every other opening of it, for the life of the object.
/// Nobody is waited for without an end: whoever may read a file may lock it, and keep the lock.
class PatientLock {
 public:
    enum class Kind { Shared, Exclusive };

    /// @param patience how long to wait for another holder.
    PatientLock(int file, Kind kind, std::chrono::milliseconds patience);
    ~PatientLock();
    PatientLock(const PatientLock&) = delete;
    PatientLock& operator=(const PatientLock&) = delete;

    /// Whether nobody else holds it. Where locks don't exist nobody does.
    bool IsHeld() const { return m_isHeld; }

 private:
    const int m_file;
    const bool m_isHeld;
};

}  // namespace k4suite
