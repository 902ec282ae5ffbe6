#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "suite/platform/FileOperationUi.h"

namespace k4suite {

/// Finds the native path of a file in the destination folder by the file's name: of the entry that
/// counts as the same name there, else of one to be made. Empty if there is no such place.
using PlaceOf = std::function<std::string(const std::string& name)>;

/// Copies files, the way a shell does it.
///
/// Where a file of the name exists, a question comes, unless FOF_NOCONFIRMATION is given (which
/// replaces it). No leaves that file as it is and counts as no failure, since it is what was
/// wanted; Cancel ends the operation. Progress is reported by bytes, unless FOF_SILENT is given,
/// and a cancel works in the middle of a file, too. Files that were copied before stay.
///
/// Folders are never copied: FOF_FILESONLY leaves them out, without it they are failures. Failures
/// as well: what isn't a regular file, a file onto itself, a file where there is a folder. A
/// failure doesn't keep the others from being copied, but a full disk ends the operation.
///
/// @param from    absolute and native.
/// @param to      an existing folder or, for a single file, the file to make in an existing folder.
/// @param flags   the sum of FOF_ values.
/// @param placeOf where names in the folder `to` follow rules of their own, such as those of a
///                store, where case doesn't count. Null: a name is its bytes.
/// @return kFileOperationDone, kFileOperationFailed or kFileOperationCancelled.
std::uint32_t CopyFiles(const std::vector<std::string>& from, const std::string& to,
                        std::uint16_t flags, FileOperationUi& ui, const PlaceOf& placeOf = {});

}  // namespace k4suite
