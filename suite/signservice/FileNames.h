#pragma once

#include <string_view>

namespace k4suite {

/// Whether a name can stand in the replies of the service: text, not empty, not too long, without
/// control characters.
bool IsFileName(std::string_view name);

/// Whether a name has the ending of a sequence, SQ4 in any case.
bool IsSequenceName(std::string_view name);

/// Whether a name has the ending of a schedule, SD4 in any case.
bool IsScheduleName(std::string_view name);

/// Whether a name has control characters.
bool HasControlCharacters(std::string_view name);

/// Whether two names are the same where the case of ASCII letters doesn't count.
bool IsSameAscii(std::string_view one, std::string_view other);

}  // namespace k4suite
