#pragma once

#include <cstddef>
#include <string_view>

#include "k4cmndlg/k4cmndlg_export.h"

class QPainter;

namespace k4cmn {

/// The units in which a picture is drawn, along each of its sides.
inline constexpr int kPictureUnits = 16;

/// Draws one of the pictures of files, of the file tree and of the tool buttons on a square of
/// kPictureUnits units, with edges on whole units, so that it is crisp at 16 pixels and at every
/// multiple of that.
class K4CMNDLG_EXPORT FilePicture {
 public:
    /// @param name "notice", "server", "file-servers", "sign-type", "library"; an extension of the
    /// store in upper
    ///        case; "up", "list", "details", "sign-filter", "properties". Of any other name it is
    ///        the picture of any file.
    explicit FilePicture(std::string_view name);

    /// The name of the picture, as in the constructor; "file" for that of any file.
    std::string_view Name() const;
    /// @param painter scaled so that the square is drawn in its place. Left as it was.
    void Draw(QPainter& painter) const;

 private:
    std::size_t m_at;  ///< in the table of pictures
};

}  // namespace k4cmn
