#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace k4test {

/// A buffer of `capacity` bytes between two guards, which tell whether somebody wrote beside it.
class GuardedBytes {
    static constexpr std::size_t kGuard = 64;
    static constexpr char kMark = '\x5A';

 public:
    explicit GuardedBytes(std::size_t capacity)
        : m_capacity(capacity), m_bytes(capacity + 2 * kGuard, kMark) {}

    char* Data() { return m_bytes.data() + kGuard; }
    std::uint8_t* Bytes() { return reinterpret_cast<std::uint8_t*>(Data()); }
    std::uint32_t Capacity() const { return static_cast<std::uint32_t>(m_capacity); }

    /// Whether both guards are as they were.
    bool IsIntact() const {
        const auto marked = [](char byte) { return byte == kMark; };
        const auto guard = static_cast<std::ptrdiff_t>(kGuard);
        return std::all_of(m_bytes.begin(), m_bytes.begin() + guard, marked) &&
               std::all_of(m_bytes.end() - guard, m_bytes.end(), marked);
    }
    /// Whether a zero ends the text within the capacity.
    bool IsTerminated() {
        return std::find(Data(), Data() + m_capacity, '\0') != Data() + m_capacity;
    }

 private:
    std::size_t m_capacity;
    std::vector<char> m_bytes;
};

}  // namespace k4test
