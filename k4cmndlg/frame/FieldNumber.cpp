#include "k4cmndlg/frame/FieldNumber.h"

#include <algorithm>
#include <limits>

namespace k4cmn {

namespace {

constexpr std::string_view kBlanks = " \t";

constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();

/// The number of a text that holds nothing else but blanks around it.
std::optional<std::int64_t> WholeNumber(std::string_view text) {
    const auto number = TakeNumber(text);
    const bool whole = text.find_first_not_of(kBlanks) == std::string_view::npos;
    return whole ? number : std::nullopt;
}

}  // namespace

std::optional<std::int64_t> TakeNumber(std::string_view& text) {
    // Far past 32 bits, and far enough from 64 for one digit more.
    constexpr std::int64_t kPin = std::int64_t{1} << 40;

    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty() || text.front() < '0' || text.front() > '9')
        return std::nullopt;
    std::int64_t number = 0;
    for (; !text.empty() && text.front() >= '0' && text.front() <= '9'; text.remove_prefix(1))
        number = std::min(number * 10 + (text.front() - '0'), kPin);
    return negative ? -number : number;
}

std::optional<std::int32_t> ParseInteger(std::string_view text) {
    const auto number = WholeNumber(text);
    if (!number || *number < kLowest || *number > kHighest)
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

std::optional<std::uint32_t> ParseUnsigned(std::string_view text) {
    constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
    const auto number = WholeNumber(text);
    if (!number)
        return std::nullopt;
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(*number, 0, kMost));
}

std::int32_t LeadingNumber(std::string_view text) {
    return static_cast<std::int32_t>(std::clamp(TakeNumber(text).value_or(0), kLowest, kHighest));
}

}  // namespace k4cmn
