#pragma once

#include <filesystem>
#include <string>

namespace k4test {

/// A folder of the test's own, empty at first and gone with the object.
class TempFolder {
 public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    /// Makes a file with a content, with the folders above it.
    std::filesystem::path Write(const std::string& name, const std::string& content = {}) const;
    /// The content of a file; empty where there is none.
    std::string Read(const std::string& name) const;

 private:
    std::filesystem::path m_path;
};

}  // namespace k4test
