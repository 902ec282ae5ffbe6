#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "suite/platform/FileOperationUi.h"
#include "suite/platform/FileSystem.h"

namespace k4suite {

/// Deletes files, folders with all in them, and links (never what a link leads to), the way a shell
/// does it.
///
/// With FOF_ALLOWUNDO they go to the trash. What no trash can hold is deleted for good only after a
/// Yes to a question of its own; with FOF_NOCONFIRMATION there is nobody to ask and it stays: a
/// deletion that was to be undoable never destroys in silence. Without FOF_ALLOWUNDO they are
/// deleted for good.
///
/// One question comes first, unless FOF_NOCONFIRMATION is given or none of the paths exists; No
/// ends the operation. Progress is reported by items, unless FOF_SILENT is given. A path that can't
/// be deleted, or doesn't exist, doesn't keep the others from being deleted.
///
/// @param paths       absolute and native; an empty one counts as one that doesn't exist. None is
///                    no failure.
/// @param flags       the sum of FOF_ values.
/// @param topFolderOf finds the trash of a mount.
/// @return kFileOperationDone if all are gone; kFileOperationCancelled after a No to the first
///         question or a cancel; else kFileOperationFailed.
std::uint32_t DeleteFiles(const std::vector<std::string>& paths, std::uint16_t flags,
                          FileOperationUi& ui, const TopFolderOf& topFolderOf);

}  // namespace k4suite
