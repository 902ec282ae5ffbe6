#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace k4cmn {

/// Room for one text reply of a stub. Whatever the stub writes within the capacity, Text() ends at
/// the first zero or at the capacity: one byte more than the stub is told stands behind it.
template <std::uint32_t Capacity>
class ReplyBuffer {
 public:
    /// What the stub gets: the bytes, how many, and the word of a length, which starts at 0.
    char* Data() { return m_bytes.data(); }
    static constexpr std::uint32_t Size() { return Capacity; }
    std::uint32_t* Length() { return &m_length; }

    /// The reply. Lives as long as the buffer.
    std::string_view Text() const { return {m_bytes.data(), ::strnlen(m_bytes.data(), Capacity)}; }

 private:
    std::array<char, Capacity + 1> m_bytes{};
    std::uint32_t m_length = 0;
};

/// Room for a text that a stub may fill in place of the caller's. It starts as the caller's text,
/// so that a stub which writes nothing leaves that as it was, however long it is.
template <std::uint32_t Capacity>
class CallersText {
 public:
    /// @param text the caller's, or null where it isn't wanted.
    explicit CallersText(std::string* text) : m_text(text) {
        if (m_text)
            m_text->copy(m_before.data(), Capacity);
        m_bytes = m_before;
    }

    char* Data() { return m_bytes.data(); }
    static constexpr std::uint32_t Size() { return Capacity; }

    /// Gives the caller what the stub wrote, up to the first zero and at most the capacity.
    void TakeOver() {
        if (m_text && m_bytes != m_before)
            m_text->assign(m_bytes.data(), ::strnlen(m_bytes.data(), Capacity));
    }

 private:
    std::string* m_text;
    std::array<char, Capacity + 1> m_before{};
    std::array<char, Capacity + 1> m_bytes;
};

}  // namespace k4cmn
