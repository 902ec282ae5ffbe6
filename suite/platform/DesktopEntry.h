#pragma once

#include <string>
#include <vector>

namespace k4suite {

/// The command of a desktop entry, for opening a document.
/// @param text the text of a ".desktop" file.
/// @return its Exec line as a command with "%1" where the document goes; without a "%1" if the line
///         names no place. Quoted as SplitCommand() reads it.
///         Empty if the entry isn't an application, is hidden, needs a terminal, or is damaged.
std::string CommandOfDesktopEntry(const std::string& text);

/// Splits a command line at its blanks. Double quote marks hold words together, three of them in a
/// row stand for the mark itself.
std::vector<std::string> SplitCommand(const std::string& command);

/// The reverse of SplitCommand(), which has no way to say an empty word: none may be empty.
std::string JoinCommand(const std::vector<std::string>& words);

}  // namespace k4suite
