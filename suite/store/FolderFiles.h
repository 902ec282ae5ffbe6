#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "suite/settings/DataHome.h"

namespace k4suite {

/// The sign file store over real folders.
///
/// The sign type text. It is four parts and is never changed again, since folders carry it:
///
///     ROWSxCOLUMNS "." COLOR "." PIXEL [ ".Palette" ]        16x80.Mono1.LED
///                                                             16x80.Mono1.LED.Palette
///
/// Rows and columns are decimal without leading zeros. COLOR and PIXEL are the short names of the
/// technologies; a value without a name is "Color" or "Pixel" and its number ("Color15"). So one
/// set of values has one text, two sets never share one, it holds no blank, at least two dots, and
/// the word "Palette" exactly when the palette flag is set.
///
/// A composed path keeps '\' between its levels whatever the server text is; NativePath() is where
/// it meets the machine's file system.
///
/// The read-only attribute of a sign type folder says on the store's first platform "this folder is
/// more than a folder", and doesn't keep anyone from adding to it. Taking the write permission here
/// would: so a sign type folder keeps its permissions, and nothing stands for the attribute.
///
/// Threads: any.
class FolderFiles final : public k4cmn::FilesProvider {
 public:
    explicit FolderFiles(DataHome home);

    /// The last component that ends in ".Lib", whatever its case, without those four characters.
    std::string LibraryOf(const std::string& fullPath) override;
    std::string BuildSign(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                          tag_K4_PIXEL_TECH pixel, int palette) override;
    /// In the sign type's own folder, not in its palette twin.
    std::string BuildPath(const std::string& server, std::uint32_t rows, std::uint32_t columns,
                          tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel,
                          const std::string& library, const std::string& file,
                          const std::string& extension) override;
    /// A path with a drive, a host or a leading '/' is absolute and comes back as it is. A path
    /// with one leading '\' begins at the root of the referrer's drive or share. Any other one
    /// begins in the referrer's folder. "." and ".." are resolved in the text, never above the
    /// referrer's root. An empty path stays empty.
    std::string GetFullPath(const std::string& path, const std::string& referrer) override;
    /// Files are all entries that aren't folders. A link counts as what it leads to. Names that
    /// aren't UTF-8 are passed over, since nothing else could name them. So are names that begin
    /// with ".k4copy-", whatever the pattern: they are copies that aren't finished.
    int FindFiles(std::vector<std::string>& names, const std::string& pattern,
                  int folders) override;
    int IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) override;
    std::string NativePath(const std::string& path) override;

 private:
    const DataHome m_home;
};

}  // namespace k4suite
