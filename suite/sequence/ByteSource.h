#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace k4suite {

/// Bytes that are read by position: a file, or a piece of memory.
/// Threads: one at a time.
class ByteSource {
 public:
    virtual ~ByteSource() = default;

    /// How many bytes there are now.
    virtual std::uint64_t Size() = 0;
    /// Reads from an offset.
    /// @return how many bytes were read: fewer than asked for at the end, or where reading fails.
    virtual std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) = 0;
};

}  // namespace k4suite
