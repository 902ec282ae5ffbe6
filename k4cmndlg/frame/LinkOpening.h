#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The open code for a system without memory or resources left.
inline constexpr std::uint32_t kOutOfResources = 0;

/// Opens a link or a document through the installed Shell: first as the shell sees fit, and if that
/// fails, with the program that is registered for ".htm".
/// @return the open code: above 32 for success. Without such a program it is the shell's own; where
///         the shell throws it is kOutOfResources.
/// Threads: any that the shell allows; it returns when the shell has started the program or failed.
K4CMNCORE_EXPORT std::uint32_t OpenLink(const std::string& text);

/// The command line that opens a text: the registered command, cut at its place for the document
/// ("%1" in double quote marks, else %1, else its end), a blank, and the text. Any thread.
K4CMNCORE_EXPORT std::string LinkCommand(const std::string& command, const std::string& text);

/// The words for an open code that stands for a failure. Any thread.
K4CMNCORE_EXPORT std::string OpenErrorText(std::uint32_t code);

/// The whole message that reports a failure: "Unable to open hyperlink:", an empty line, the words.
/// Any thread.
K4CMNCORE_EXPORT std::string OpenErrorMessage(std::uint32_t code);

}  // namespace k4cmn
