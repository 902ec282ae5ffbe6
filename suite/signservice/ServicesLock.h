#pragma once

#include <filesystem>
#include <string>

#include "suite/settings/DataHome.h"
#include "suite/signservice/ServicesHolder.h"

namespace k4suite {

/// The right to run the services of a data home, which one holder at a time has, among all
/// processes. It is a lock on the home's lock file; the system takes it away with the object or
/// with the process, whatever ends it. While it is held, the file says who holds it: the process
/// id, a tab, the program and a newline. Threads: an object belongs to one thread.
class ServicesLock {
 public:
    /// Takes nothing yet.
    /// @param program the name that others are told.
    ServicesLock(const DataHome& home, std::string program);
    ~ServicesLock();
    ServicesLock(const ServicesLock&) = delete;
    ServicesLock& operator=(const ServicesLock&) = delete;

    /// Takes the lock if nobody has it; doesn't wait. The home is made if it doesn't exist.
    /// @return whether this object holds the lock.
    bool TryAcquire();
    /// Who held the lock when TryAcquire() last failed, or this process if it holds it.
    ServicesHolder Holder() const;

 private:
    std::filesystem::path m_path;
    std::string m_program;
    int m_file = -1;
};

}  // namespace k4suite
