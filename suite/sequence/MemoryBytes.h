#pragma once

#include <algorithm>

#include "suite/sequence/ByteSource.h"

namespace k4suite {

/// A piece of memory, the caller's, that must outlive the object.
class MemoryBytes final : public ByteSource {
 public:
    explicit MemoryBytes(std::span<const std::uint8_t> memory) : m_memory(memory) {}

    std::uint64_t Size() override { return m_memory.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) override {
        if (offset >= m_memory.size())
            return 0;
        const auto from = m_memory.subspan(static_cast<std::size_t>(offset));
        const std::size_t count = std::min(from.size(), bytes.size());
        std::copy_n(from.begin(), count, bytes.begin());
        return count;
    }

 private:
    std::span<const std::uint8_t> m_memory;
};

}  // namespace k4suite
