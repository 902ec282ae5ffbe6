#pragma once

#include <chrono>
#include <string>
#include <utility>

namespace k4suite {

/// Something that is wrong with a machine, for tests and for trying out what an operator then sees.
class Fault {
 public:
    enum class Kind { Unreachable, Slow, FailingStub };

    /// The machine can't be reached: connecting, pinging and every call fail.
    static Fault Unreachable() { return Fault(Kind::Unreachable, {}, {}); }
    /// Every call takes that much longer.
    static Fault Slow(std::chrono::milliseconds wait) { return Fault(Kind::Slow, wait, {}); }
    /// Calls of one stub fail.
    /// @param stub its name, such as "k4ssSetDimming".
    static Fault FailingStub(std::string stub) {
        return Fault(Kind::FailingStub, {}, std::move(stub));
    }

    Kind What() const { return m_kind; }
    std::chrono::milliseconds Wait() const { return m_wait; }
    const std::string& Stub() const { return m_stub; }

 private:
    Fault(Kind kind, std::chrono::milliseconds wait, std::string stub)
        : m_kind(kind), m_wait(wait), m_stub(std::move(stub)) {}

    Kind m_kind;
    std::chrono::milliseconds m_wait;
    std::string m_stub;
};

}  // namespace k4suite
