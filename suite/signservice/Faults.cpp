#include "suite/signservice/Faults.h"

#include <thread>
#include <utility>

namespace k4suite {

Faults::Faults()
    : m_waiter([](std::chrono::milliseconds wait) { std::this_thread::sleep_for(wait); }) {}

void Faults::Set(const std::string& machine, const Fault& fault) {
    const std::lock_guard lock(m_mutex);
    OfMachine& at = m_machines[machine];
    switch (fault.What()) {
        case Fault::Kind::Unreachable:
            at.isUnreachable = true;
            break;
        case Fault::Kind::Slow:
            at.wait = fault.Wait();
            break;
        case Fault::Kind::FailingStub:
            at.failing.insert(fault.Stub());
            break;
    }
}

void Faults::Clear() {
    const std::lock_guard lock(m_mutex);
    m_machines.clear();
}

void Faults::SetWaiter(Waiter waiter) {
    const std::lock_guard lock(m_mutex);
    m_waiter = std::move(waiter);
}

bool Faults::Pass(const std::string& machine, const char* stub) {
    OfMachine faults;
    Waiter waiter;
    {
        const std::lock_guard lock(m_mutex);
        const auto at = m_machines.find(machine);
        if (at == m_machines.end())
            return true;
        faults = at->second;
        waiter = m_waiter;
    }
    // Outside of the lock, so that one slow machine doesn't hold up the others.
    if (faults.wait.count() > 0 && waiter)
        waiter(faults.wait);
    return !faults.isUnreachable && !faults.failing.contains(stub);
}

}  // namespace k4suite
