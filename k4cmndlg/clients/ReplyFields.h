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

/// Takes the first field, which may be empty, off a text whose fields are separated by tabs. Takes
/// no memory.
/// @param rest what is left of the text; loses the field and its tab.
/// @param take gets the field, as a view that ends with the call.
/// @return false at the end of the text.
template <class Take>
bool TakeField(std::string& rest, Take take) {
    if (rest.empty())
        return false;
    const std::size_t tab = rest.find('\t');
    take(std::string_view(rest).substr(0, tab));
    rest.erase(0, tab == std::string::npos ? tab : tab + 1);
    return true;
}

/// Hands the fields of a reply to outputs, one a call, in the order of the reply. A field that the
/// reply doesn't hold leaves its output as it was, and so does a null output; the walk goes on.
class ReplyFields {
 public:
    /// @param rest the reply, from which each call takes a field; must outlive the object.
    explicit ReplyFields(std::string& rest) : m_rest(rest) {}

    void Text(std::string* output) {
        Take(output, [](std::string_view field, std::string& text) { text = field; });
    }
    template <class Word>
    void Number(Word* output) {
        Take(output, [](std::string_view field, Word& word) { TakeNumber(field, word); });
    }
    /// A number out of its bounds is replaced by `other`.
    template <class Value>
    void Replaced(Value* output, std::int32_t lowest, std::int32_t highest, std::int32_t other) {
        Take(output, [=](std::string_view field, Value& value) {
            const std::int32_t number = DecimalNumber(field);
            const bool within = lowest <= number && number <= highest;
            value = static_cast<Value>(within ? number : other);
        });
    }
    /// A number out of its bounds becomes the nearer one.
    void Clamped(std::int32_t* output, std::int32_t lowest, std::int32_t highest) {
        Take(output, [=](std::string_view field, std::int32_t& number) {
            number = std::clamp(DecimalNumber(field), lowest, highest);
        });
    }
    void Dropped() {
        TakeField(m_rest, [](std::string_view) {});
    }

 private:
    template <class Output, class Store>
    void Take(Output* output, Store store) {
        TakeField(m_rest, [&](std::string_view field) {
            if (output)
                store(field, *output);
        });
    }

    std::string& m_rest;
};

}  // namespace k4cmn
