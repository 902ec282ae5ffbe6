#pragma once

#include <array>
#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The extensions that the search knows; a file type of the search is an index in here.
inline constexpr std::array<std::string_view, 4> kSearchExtensions{"SQ4", "SD4", "SC4", "SEQ"};
/// What the list "File Types:" of the search offers, one for each extension.
inline constexpr std::array<const char*, 4> kSearchTypeNames{"Sequences", "Schedules", "Scripts",
                                                             "K3300 Seq's"};
/// The file type of an extension that the search doesn't know.
inline constexpr int kUnknownSearchType = -1;
/// The file type of sequences, the only files with keywords.
inline constexpr int kSequenceSearchType = 0;

/// The file type of a path by its extension, whatever its case; kUnknownSearchType for others.
K4CMNCORE_EXPORT int GetFileType(std::string_view path);

/// The extension of a file type; empty for a number that is no index of the list.
K4CMNCORE_EXPORT std::string_view SearchExtension(int type);

/// What the column "Type" of the results says: "K4400 Seq", "K4400 Sched", "K4400 Script",
/// "K3300 Seq", and "Unknown" for any other number.
K4CMNCORE_EXPORT const char* FoundTypeName(int type);

}  // namespace k4cmn
