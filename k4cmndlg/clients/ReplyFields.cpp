#include "k4cmndlg/clients/ReplyFields.h"

#include <limits>

namespace k4cmn {

namespace {

// Beyond both ends of 32 bits; more digits can't change where the number is pinned.
constexpr std::int64_t kFarOut = std::int64_t{1} << 40;

std::int64_t Decimal(std::string_view field) {
    const bool negative = !field.empty() && field.front() == '-';
    if (negative || (!field.empty() && field.front() == '+'))
        field.remove_prefix(1);
    std::int64_t number = 0;
    for (const char byte : field) {
        if (byte < '0' || byte > '9')
            break;
        number = std::min(number * 10 + (byte - '0'), kFarOut);
    }
    return negative ? -number : number;
}

template <class Number>
Number Pinned(std::int64_t number) {
    using Ends = std::numeric_limits<Number>;
    return static_cast<Number>(
        std::clamp(number, std::int64_t{Ends::min()}, std::int64_t{Ends::max()}));
}

}  // namespace

std::int32_t DecimalNumber(std::string_view field) {
    return Pinned<std::int32_t>(Decimal(field));
}

std::uint32_t DecimalWord(std::string_view field) {
    return Pinned<std::uint32_t>(Decimal(field));
}

bool ReplyTokens::Next(std::string_view& token) {
    const std::size_t begin = m_rest.find_first_not_of(m_separators);
    if (begin == std::string_view::npos) {
        m_rest = {};
        return false;
    }
    m_rest.remove_prefix(begin);
    token = m_rest.substr(0, m_rest.find_first_of(m_separators));
    m_rest.remove_prefix(token.size());
    return true;
}

}  // namespace k4cmn
