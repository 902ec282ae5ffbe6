#pragma once

#include <string>

namespace k4suite {

/// Whether the system's printing can make pages of a file as it is: text of any kind, PDF,
/// PostScript, pictures. The print scheduler takes anything, and prints what it doesn't know byte
/// by byte; of a sequence that would be heaps of paper. Told by the file's name and its beginning;
/// the suite's own extensions tell nothing, so that a script, which is text, can be printed.
/// @param path native.
bool IsPrintable(const std::string& path);

}  // namespace k4suite
