#pragma once

#include <cstddef>
#include <cstdint>

namespace k4test {

/// Bytes that end where readable memory ends: whoever reads or writes one byte more is stopped, in
/// every build.
class GuardedBytes {
 public:
    explicit GuardedBytes(std::size_t size, std::uint8_t value = 0);
    ~GuardedBytes();
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    std::uint8_t* data() { return m_begin; }
    const std::uint8_t* data() const { return m_begin; }
    std::size_t size() const { return m_size; }
    std::uint8_t* begin() { return m_begin; }
    std::uint8_t* end() { return m_begin + m_size; }
    const std::uint8_t* begin() const { return m_begin; }
    const std::uint8_t* end() const { return m_begin + m_size; }

 private:
    std::size_t m_size;
    std::size_t m_mapped;
    std::uint8_t* m_map;
    std::uint8_t* m_begin;
};

}  // namespace k4test
