#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "suite/sequence/ByteSource.h"

namespace k4suite {

/// Reads small pieces that lie close together with few reads of the file.
class ReadAhead {
 public:
    /// @param bytes must outlive the object.
    explicit ReadAhead(ByteSource& bytes) : m_bytes(bytes) {}

    /// Reads a small piece, a page at most.
    /// @return false if it isn't all there.
    bool Read(std::uint64_t offset, std::span<std::uint8_t> piece);

 private:
    ByteSource& m_bytes;
    std::array<std::uint8_t, 4096> m_window{};
    std::uint64_t m_offset = 0;
    std::size_t m_filled = 0;
};

}  // namespace k4suite
