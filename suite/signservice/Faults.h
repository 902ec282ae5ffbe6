#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>

#include "suite/signservice/Fault.h"

namespace k4suite {

/// What is wrong with the machines at present. A machine may have several faults at once.
/// Threads: any.
class Faults {
 public:
    using Waiter = std::function<void(std::chrono::milliseconds)>;

    Faults();

    void Set(const std::string& machine, const Fault& fault);
    void Clear();
    /// Says how a slow machine's time is spent; by default the thread sleeps.
    void SetWaiter(Waiter waiter);

    /// Lets a call of a stub wait as long as its machine's faults say.
    /// @return false if the call is to fail.
    bool Pass(const std::string& machine, const char* stub);

 private:
    struct OfMachine {
        bool isUnreachable = false;
        std::chrono::milliseconds wait{0};
        std::set<std::string> failing;
    };

    std::mutex m_mutex;
    std::map<std::string, OfMachine> m_machines;
    Waiter m_waiter;
};

}  // namespace k4suite
