#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace k4suite {

/// The names of keys, sections and values in an INI file, where a name may hold any character.
///
/// QSettings keeps '/' for its own levels, folds repeated ones, and has a section "General" that
/// means none. So a name is written with "%XX" (a byte in two hexadecimal digits) for '/', '\',
/// '%', control characters, bytes that aren't UTF-8, a dot at its beginning and the first letter of
/// the word "General" in any case; the empty name is ".default". Names with a dot in front are thus
/// free for our own use, such as the mark of a key, and different names stay different.

/// The mark in a key that exists, so that a key without values exists too.
inline constexpr char kKeyMark[] = ".key";

/// One name as it is written into a file.
QString EncodeName(std::string_view name);
/// The reverse of EncodeName().
std::string DecodeName(const QString& written);
/// A key text with '\' between its levels, as QSettings takes it. Empty levels don't count.
QString EncodeKey(std::string_view key);
/// A value's place below a key.
QString EncodeValue(const QString& encodedKey, std::string_view name);

}  // namespace k4suite
