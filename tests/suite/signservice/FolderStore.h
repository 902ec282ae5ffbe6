#pragma once

#include <string>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// A store that is one folder: the path "S:\x" is the file "x" in it, "S:\y\x" the file "y\x"
/// (there are no folders inside). Only what the sign service asks of a store works.
class FolderStore final : public k4cmn::FilesProvider {
 public:
    std::string NativePath(const std::string& path) override {
        return path.starts_with("S:\\") ? (m_folder / path.substr(3)).string() : std::string();
    }
    std::filesystem::path Write(const std::string& name, const std::string& content = {}) {
        return m_folder.Write(name, content);
    }
    std::string Read(const std::string& name) const { return m_folder.Read(name); }
    const std::filesystem::path& Path() const { return m_folder.Path(); }

    std::string LibraryOf(const std::string&) override { return {}; }
    std::string BuildSign(std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH,
                          int) override {
        return {};
    }
    std::string BuildPath(const std::string&, std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR,
                          tag_K4_PIXEL_TECH, const std::string&, const std::string&,
                          const std::string&) override {
        return {};
    }
    std::string GetFullPath(const std::string& path, const std::string& referrer) override {
        return path.empty() || path.starts_with("S:")
                   ? path
                   : referrer.substr(0, referrer.find_last_of('\\') + 1) + path;
    }
    int FindFiles(std::vector<std::string>&, const std::string&, int) override { return 0; }
    int IsColorAndPixelTechValid(tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH) override { return 0; }

 private:
    TempFolder m_folder;
};

}  // namespace k4test
