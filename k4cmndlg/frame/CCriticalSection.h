#pragma once

#include <cstdint>
#include <mutex>

/// A recursive lock between the threads of the process.
///
/// A wait may be handed to Lock(), in milliseconds. It is carried and not honoured: the lock waits
/// for as long as it takes and always reports success. Callers that test the result are written for
/// a lock that could fail; this one never does.
class CCriticalSection {
 public:
    CCriticalSection() = default;
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;

    /// Takes the lock. The thread that holds it may take it again.
    /// @return always 1.
    int Lock([[maybe_unused]] std::uint32_t dwTimeout = 0xFFFFFFFF) {
        m_mutex.lock();
        return 1;
    }

    /// Gives one Lock() of this thread back.
    /// @return always 1.
    int Unlock() {
        m_mutex.unlock();
        return 1;
    }

 private:
    std::recursive_mutex m_mutex;
};

namespace k4cmn {

/// Holds a CCriticalSection for the life of a scope.
class CriticalSectionLock {
 public:
    explicit CriticalSectionLock(CCriticalSection& section, std::uint32_t dwTimeout = 0xFFFFFFFF)
        : m_section(section), m_locked(section.Lock(dwTimeout)) {}
    ~CriticalSectionLock() { m_section.Unlock(); }
    CriticalSectionLock(const CriticalSectionLock&) = delete;
    CriticalSectionLock& operator=(const CriticalSectionLock&) = delete;

    /// What Lock() reported.
    int IsLocked() const { return m_locked; }

 private:
    CCriticalSection& m_section;
    int m_locked;
};

}  // namespace k4cmn
