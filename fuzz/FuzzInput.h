#pragma once

#include <cstdint>
#include <cstdlib>
#include <span>

namespace k4fuzz {

/// A fuzzer's input, from which numbers are taken off the front. Behind the end all are 0.
class FuzzInput {
 public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_rest(data, size) {}

    std::uint8_t Byte() {
        if (m_rest.empty())
            return 0;
        const std::uint8_t byte = m_rest.front();
        m_rest = m_rest.subspan(1);
        return byte;
    }
    std::uint16_t Word() {
        const std::uint8_t low = Byte();
        return static_cast<std::uint16_t>(low | Byte() << 8);
    }
    /// What wasn't taken.
    std::span<const std::uint8_t> Rest() const { return m_rest; }

 private:
    std::span<const std::uint8_t> m_rest;
};

/// Ends the run as a crash where something isn't as it must be.
inline void Require(bool isAsItMustBe) {
    if (!isAsItMustBe)
        std::abort();
}

}  // namespace k4fuzz
