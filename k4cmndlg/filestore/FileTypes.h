#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

/// Which types of files a dialog offers. A value above 9 behaves like K4_FILE_TYPE_NONE.
enum tag_K4_FILE_TYPE : std::int32_t {
    K4_FILE_TYPE_SEQUENCE = 0,
    K4_FILE_TYPE_SCHEDULE = 1,
    K4_FILE_TYPE_SCRIPT = 2,
    K4_FILE_TYPE_OLD_SEQUENCE = 3,
    K4_FILE_TYPE_DOWNLOAD = 4,
    K4_FILE_TYPE_PALETTE = 5,
    K4_FILE_TYPE_SEQUENCE_PALETTE = 6,
    K4_FILE_TYPE_ALL = 7,
    K4_FILE_TYPE_NONE = 8,
    K4_FILE_TYPE_SEQUENCE_AVI = 9,
};

namespace k4cmn {

/// What a dialog offers when nobody has set its type.
inline constexpr tag_K4_FILE_TYPE kDefaultFileType = K4_FILE_TYPE_ALL;

/// The extensions of a dialog that hasn't opened yet; opening replaces them by ExtensionsOf(). The
/// palettes' "SP4" isn't among them.
inline constexpr std::array<std::string_view, 6> kExtensionsBeforeOpening{"SQ4", "SD4", "SC4",
                                                                          "SEQ", "DL4", "AVI"};

/// The value as the table knows it: any value out of 0 to 9 becomes K4_FILE_TYPE_NONE.
K4CMNCORE_EXPORT tag_K4_FILE_TYPE KnownFileType(std::int32_t value);

/// The extensions that a file type offers, in the order of the types; none for K4_FILE_TYPE_NONE.
K4CMNCORE_EXPORT std::vector<std::string> ExtensionsOf(tag_K4_FILE_TYPE type);

/// The plural names that a file type puts into the combo box "File Types". Of K4_FILE_TYPE_ALL they
/// are one fewer than its extensions: "AVI" has none. None for K4_FILE_TYPE_NONE.
K4CMNCORE_EXPORT std::vector<std::string> PluralNamesOf(tag_K4_FILE_TYPE type);

/// Whether the combo box keeps what it holds instead of being filled.
K4CMNCORE_EXPORT bool KeepsFileTypesCombo(tag_K4_FILE_TYPE type);

/// The name in the list's Type column, by the plural name that the combo box shows (exact case);
/// "Unknown" for any other text.
K4CMNCORE_EXPORT std::string_view TypeNameOfPlural(std::string_view plural);

/// The name in the list's Type column of an extension (exact case); "Unknown" for any other.
K4CMNCORE_EXPORT std::string_view TypeNameOfExtension(std::string_view extension);

/// Whether files of this extension belong to no sign type and lie at the server's root: "SC4" and
/// "DL4", in exact case.
K4CMNCORE_EXPORT bool LiesAtServerRoot(std::string_view extension);

}  // namespace k4cmn
