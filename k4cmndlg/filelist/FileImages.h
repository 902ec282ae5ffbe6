#pragma once

#include <QFontMetrics>
#include <QIcon>
#include <QSize>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// The images that the tree and the list of files share, 16 by 16 pixels at the least: notice,
/// server, sign type, library, then one for each extension of the dialog. ImagePositions.h names
/// the positions. A value; copies share the pictures. Threads: the user interface thread.
class K4CMNDLG_EXPORT FileImages {
 public:
    static constexpr int kSize = 16;

    FileImages() : FileImages(std::vector<std::string>()) {}
    /// @param extensions the dialog's current extension list.
    explicit FileImages(const std::vector<std::string>& extensions);

    /// The image at a position; the empty one out of range.
    QIcon At(int image) const;

    /// The image of a kind of file; that of any file for an extension that the store doesn't know.
    static QIcon OfExtension(std::string_view extension);
    /// The image of a tool button.
    /// @param name "up", "list", "details", "sign-filter", "properties"; of any other, that of any
    ///        file.
    static QIcon OfTool(std::string_view name);

    /// The size at which images stand beside a text: kSize, and more of it by halves for a large
    /// font.
    static QSize SizeBeside(const QFontMetrics& font);

 private:
    std::vector<QIcon> m_images;
};

}  // namespace k4cmn
