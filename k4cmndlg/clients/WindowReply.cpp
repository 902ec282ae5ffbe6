#include "k4cmndlg/clients/WindowReply.h"

#include <limits>

#include "k4cmndlg/clients/ReplyFields.h"
#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4cmn {

namespace {

/// A place that counts from 0, as one that counts from 1; the greatest number stays what it is.
std::int32_t FromZeroBased(std::string_view field) {
    const std::int32_t place = DecimalNumber(field);
    return place == std::numeric_limits<std::int32_t>::max() ? place : place + 1;
}

}  // namespace

bool FindWindowLine(std::string_view reply, std::uint32_t window, std::string_view& line) {
    ReplyTokens lines(reply, "\n");
    for (std::uint32_t number = 1; number <= K4_MAX_SIGN_WINDOWS; ++number) {
        if (!lines.Next(line))
            return false;
        if (number == window)
            return true;
    }
    return false;
}

bool StoreWindowLine(std::string_view line, std::int32_t* open, std::int32_t* row,
                     std::int32_t* column, std::string* name) {
    ReplyTokens fields(line, "\t\n");
    // Takes the next field; false where the output that it is for is wanted and stays without.
    const auto stored = [&fields](auto* output, auto convert) {
        std::string_view field;
        const bool found = fields.Next(field);
        if (found && output)
            *output = convert(field);
        return found || !output;
    };
    return stored(name, [](std::string_view field) { return std::string(field); }) &&
           stored(open, DecimalNumber) && stored(row, FromZeroBased) &&
           stored(column, FromZeroBased);
}

}  // namespace k4cmn
