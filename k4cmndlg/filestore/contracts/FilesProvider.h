#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What stands behind CK4Files: the sign file store itself. Every path is a composed one, with '\'
/// as separator; the implementation alone knows where it lies on this machine.
/// Threads: any; an implementation guards itself. An int result is 1 for success and 0 for failure.
class K4CMNCORE_EXPORT FilesProvider {
 public:
    virtual ~FilesProvider();

    /// The library name in a full path, without the suffix ".Lib"; empty if the path has none.
    virtual std::string LibraryOf(const std::string& fullPath) = 0;

    /// The sign type text of five values, without ".Sign". It holds at least two dots and no blank,
    /// and it holds the word "Palette" exactly when `palette` is not 0. One set of values gives one
    /// text, for good: folders carry it.
    virtual std::string BuildSign(std::uint32_t rows, std::uint32_t columns,
                                  tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel,
                                  int palette) = 0;

    /// The complete path of a file in a library.
    virtual std::string BuildPath(const std::string& server, std::uint32_t rows,
                                  std::uint32_t columns, tag_K4_SIGN_COLOR color,
                                  tag_K4_PIXEL_TECH pixel, const std::string& library,
                                  const std::string& file, const std::string& extension) = 0;

    /// A path made absolute, as seen from the file that refers to it.
    virtual std::string GetFullPath(const std::string& path, const std::string& referrer) = 0;

    /// Lists the names that match a pattern, in no order.
    /// @param names   filled with the names (no folder part); what it held is replaced.
    /// @param pattern a composed path whose last component holds '*' and '?'. Case doesn't count,
    ///                and "*.*" matches every name.
    /// @param folders not 0 lists folders, 0 lists files.
    /// @return 1 if the folder could be read, also when nothing matched; 0 with an empty list if it
    ///         couldn't.
    virtual int FindFiles(std::vector<std::string>& names, const std::string& pattern,
                          int folders) = 0;

    /// 1 if signs of this color technology are made with this pixel technology.
    virtual int IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) = 0;

    /// Maps a composed path to a path of this machine's file system.
    /// @return the native path, in the file system's own encoding; empty if there is no such place.
    virtual std::string NativePath(const std::string& path) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, FilesProvider)
