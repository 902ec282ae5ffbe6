#pragma once

#include <string>

#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// @name Changes of single entries of the store, with their messages.
/// @{

/// Gives a file another name in its folder. Whether the name is a good one isn't looked at, on
/// purpose.
/// @param name without extension. @param prompt told "Rename failed", also for a name that leads
///             out of the folder.
/// @return whether there was anything to do: not where the name is the same in exact case.
K4CMNCORE_EXPORT bool RenameFile(const FileLocation& file, const std::string& name, Prompt& prompt);

/// Makes the folder of a library.
/// @param signTypeFolder with '\' at its end. @param name without ".Lib".
/// @param prompt told "Error Creating: " and the path, also for a name that leads out of the
/// folder.
/// @return whether it was made.
K4CMNCORE_EXPORT bool MakeLibrary(const std::string& signTypeFolder, const std::string& name,
                                  Prompt& prompt);

/// Moves a library with all in it to the recycle facility, which asks its own question.
/// @param prompt told where the place isn't one of a library, and "Error removing Library", also
///               after a No to the question.
/// @return whether it is gone.
K4CMNCORE_EXPORT bool RemoveLibrary(const FileLocation& library, Prompt& prompt);

/// @}

}  // namespace k4cmn
