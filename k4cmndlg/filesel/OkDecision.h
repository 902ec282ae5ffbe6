#pragma once

#include <cstdint>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

/// What the file selection dialog is used for. Values that aren't here behave like K4_FILE_OPEN.
enum tag_K4_FILE_MODE : std::int32_t {
    K4_FILE_OPEN = 0,
    K4_FILE_NEW = 1,
    K4_FILE_SAVE_AS = 2,
    K4_FILE_MANAGER = 3,
    K4_FILE_PICK = 4,  ///< a file or a folder
};

namespace k4cmn {

/// What OK does, once it is known whether the file exists.
enum class OkStep : std::uint8_t {
    AskReplace,  ///< "File already exists."
    AskCreate,   ///< "File not found."
    Open,        ///< open the file in its application, and stay
    Take,        ///< take the result and every selected row, and end
    End,         ///< end with the result as it is
};

/// What follows an answer.
enum class OkEnd : std::uint8_t {
    Stay,           ///< the dialog stays open
    End,            ///< it ends with the result
    TakeAndEnd,     ///< the result goes into the selected files, and it ends
    CancelAndEnd,   ///< the result is emptied, and it ends
    CancelAndTake,  ///< the result is emptied, goes into the selected files, and it ends
};

/// @param fileIsEmpty whether there is no file name.
K4CMNCORE_EXPORT OkStep DecideOk(tag_K4_FILE_MODE mode, bool exists, bool fileIsEmpty);

/// What an answer to AskReplace or AskCreate leads to.
K4CMNCORE_EXPORT OkEnd DecideAnswer(OkStep asked, MessageAnswer answer);

/// Whether a double-click on a row does what OK does.
K4CMNCORE_EXPORT bool DoubleClickIsOk(tag_K4_FILE_MODE mode);

}  // namespace k4cmn
