#pragma once

#include <cstddef>
#include <cstdint>

namespace k4test {

/// Bytes that end where readable memory ends: whoever reads or writes one byte more is stopped, in
/// every build.
class PageEndBytes {
 public:
    explicit PageEndBytes(std::size_t size, std::uint8_t value = 0);
    ~PageEndBytes();
    PageEndBytes(const PageEndBytes&) = delete;
    PageEndBytes& operator=(const PageEndBytes&) = delete;

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
