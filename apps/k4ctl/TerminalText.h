#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace k4ctl {

/// Text of others made fit for a terminal: what a terminal would act upon is written out instead.
/// Newline, return and tab become \n, \r and \t; other control characters and bytes that are no
/// UTF-8 become \x and two digits; controls beyond ASCII, line separators and marks that turn the
/// direction of writing become \u and four digits. All other text, backslashes included, stays.
std::string Escaped(std::string_view text);

/// How many columns of a terminal a text takes that went through Escaped(): two for a wide
/// character, none for a combining one.
std::size_t DisplayWidth(std::string_view text);

/// A JSON document with the controls that JSON lets stand (U+007F to U+009F) written as \u and four
/// digits, so that it too can be shown on a terminal. The document's meaning stays.
std::string EscapedJson(std::string_view document);

}  // namespace k4ctl
