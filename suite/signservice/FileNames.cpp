#include "suite/signservice/FileNames.h"

#include <algorithm>

#include "suite/settings/NameText.h"
#include "suite/signservice/PlayOrder.h"

namespace k4suite {

namespace {

bool EndsIn(std::string_view name, std::string_view ending) {
    return name.size() > ending.size() &&
           IsSameAscii(name.substr(name.size() - ending.size()), ending);
}

}  // namespace

bool IsFileName(std::string_view name) {
    return !name.empty() && name.size() <= kLongestFileName && !HasControlCharacters(name) &&
           IsUtf8(name);
}

bool IsSequenceName(std::string_view name) {
    return EndsIn(name, ".SQ4");
}

bool IsScheduleName(std::string_view name) {
    return EndsIn(name, ".SD4");
}

bool HasControlCharacters(std::string_view name) {
    return std::any_of(name.begin(), name.end(), [](char byte) {
        return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
    });
}

bool IsSameAscii(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

}  // namespace k4suite
