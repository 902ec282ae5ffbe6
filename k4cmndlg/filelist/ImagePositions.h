#pragma once

namespace k4cmn {

/// @name Positions in the list of images that trees and lists of files share.
/// @{
inline constexpr int kNoticeImage = 0;
inline constexpr int kServerImage = 1;
inline constexpr int kSignTypeImage = 2;
inline constexpr int kLibraryImage = 3;
inline constexpr int kFirstFileImage = 4;  ///< and the position in the dialog's extension list
/// @}

}  // namespace k4cmn
