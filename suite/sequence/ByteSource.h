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

/// Bytes that can be changed too.
class ChangeableBytes : public ByteSource {
 public:
    /// Writes at an offset, also behind the end.
    /// @return false with errno where not all of it could be written.
    virtual bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) = 0;
    /// Sees to it that what was written outlives the machine.
    /// @return false with errno.
    virtual bool Flush() = 0;
    /// Cuts off what lies from an offset on.
    /// @return false with errno.
    virtual bool CutAt(std::uint64_t size) = 0;
};

}  // namespace k4suite
