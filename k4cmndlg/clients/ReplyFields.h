#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The number that a field of a reply begins with: an optional sign, then the decimal digits up to
/// the first other byte. No digits is 0; what doesn't fit is pinned to the nearer end, of the
/// signed 32-bit numbers here and of the unsigned ones below.
K4CMNCORE_EXPORT std::int32_t DecimalNumber(std::string_view field);
K4CMNCORE_EXPORT std::uint32_t DecimalWord(std::string_view field);

/// The number of a field whose type the output says.
inline void TakeNumber(std::string_view field, std::uint32_t& output) {
    output = DecimalWord(field);
}
inline void TakeNumber(std::string_view field, std::int32_t& output) {
    output = DecimalNumber(field);
}

/// Takes a reply apart at every run of separators, as a view into it.
class K4CMNCORE_EXPORT ReplyTokens {
 public:
    /// @param reply,separators must outlive the object.
    ReplyTokens(std::string_view reply, std::string_view separators)
        : m_rest(reply), m_separators(separators) {}

    /// Takes the next token.
    /// @return whether there was one; it is never empty. At the end `token` stays as it was.
    bool Next(std::string_view& token);

 private:
    std::string_view m_rest;
    std::string_view m_separators;
};

/// Hands the fields of a reply to outputs, one a call, in the order of the reply. A field that the
/// reply doesn't hold leaves its output as it was, and so does a null output; the walk goes on.
/// @tparam NextField takes the next field into a std::string&; false at the end.
template <class NextField>
class ReplyFields {
 public:
    explicit ReplyFields(NextField next) : m_next(next) {}

    void Text(std::string* output) {
        if (m_next(m_field) && output)
            *output = m_field;
    }
    template <class Word>
    void Number(Word* output) {
        if (m_next(m_field) && output)
            TakeNumber(m_field, *output);
    }
    /// A number out of its bounds is replaced by `other`.
    template <class Value>
    void Replaced(Value* output, std::int32_t lowest, std::int32_t highest, std::int32_t other) {
        if (m_next(m_field) && output) {
            const std::int32_t number = DecimalNumber(m_field);
            const bool within = lowest <= number && number <= highest;
            *output = static_cast<Value>(within ? number : other);
        }
    }
    /// A number out of its bounds becomes the nearer one.
    void Clamped(std::int32_t* output, std::int32_t lowest, std::int32_t highest) {
        if (m_next(m_field) && output)
            *output = std::clamp(DecimalNumber(m_field), lowest, highest);
    }
    void Dropped() { m_next(m_field); }

 private:
    NextField m_next;
    std::string m_field;
};

}  // namespace k4cmn
