#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The sign file store, as dialogs use it: a short-lived local object, made where it is needed,
/// over whatever FilesProvider is installed. With none installed, paths are empty and lists fail.
/// An int result is 1 for success and 0 for failure. Threads: an object belongs to one thread.
class K4CMNCORE_EXPORT CK4Files {
 public:
    CK4Files() = default;
    /// Holds the components of a full path.
    explicit CK4Files(std::string path) : m_path(std::move(path)) {}

    /// The library name of the path given to the constructor, for use as a Library field.
    std::string GetLibrary() const;

    /// See FilesProvider::BuildSign().
    std::string BuildSign(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                          tag_K4_PIXEL_TECH pixel, int palette) const;

    /// The complete path of a file in a library: server, sign type folder, library folder, file.
    std::string BuildPath(const std::string& server, std::uint32_t rows, std::uint32_t columns,
                          tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel,
                          const std::string& library, const std::string& file,
                          const std::string& extension) const;

    /// A path made absolute, as seen from the file that refers to it.
    std::string GetFullPath(const std::string& path, const std::string& referrer) const;

    /// Lists the names that match a pattern; see FilesProvider::FindFiles().
    static int FindFiles(std::vector<std::string>& names, const std::string& pattern, int folders);

    /// 1 if signs of this color technology are made with this pixel technology.
    static int IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel);

    /// The color technology of a combo box index. An index out of range becomes a value that has no
    /// name and goes with no pixel technology.
    static tag_K4_SIGN_COLOR IntToColorTech(int index);
    /// The pixel technology of a combo box index plus one. A number out of 1 to 3 becomes a value
    /// that has no name and goes with no color technology.
    static tag_K4_PIXEL_TECH IntToPixelTech(int indexPlusOne);

 private:
    std::string m_path;
};
