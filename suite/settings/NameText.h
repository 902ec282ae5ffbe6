#pragma once

#include <string_view>

#include "k4cmndlg/filestore/CaseFolding.h"

namespace k4suite {

using k4cmn::FoldedCharacter;
using k4cmn::kMalformed;
using k4cmn::NextCharacter;

/// An ASCII letter in lower case; any other byte as it is.
constexpr char LowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

/// Whether a byte is a whole character by itself.
constexpr bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Whether bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

/// Whether two names are the same in the store and the settings, where case doesn't count. A name
/// that isn't UTF-8 is the same as its own bytes alone.
bool IsSameName(std::string_view one, std::string_view other);

}  // namespace k4suite
