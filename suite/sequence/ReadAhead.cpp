#include "suite/sequence/ReadAhead.h"

#include <algorithm>

namespace k4suite {

bool ReadAhead::Read(std::uint64_t offset, std::span<std::uint8_t> piece) {
    const bool isHeld = offset >= m_offset && offset + piece.size() <= m_offset + m_filled;
    if (!isHeld) {
        m_offset = offset;
        m_filled = m_bytes.ReadAt(offset, m_window);
        if (m_filled < piece.size())
            return false;
    }
    std::copy_n(m_window.begin() + static_cast<std::ptrdiff_t>(offset - m_offset), piece.size(),
                piece.begin());
    return true;
}

}  // namespace k4suite
