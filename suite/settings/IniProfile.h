#pragma once

#include <filesystem>
#include <string>

#include "k4cmndlg/frame/contracts/Profile.h"
#include "suite/settings/IniFile.h"

namespace k4suite {

/// The profile of one application in an INI file of its own: a section a profile section, where '\'
/// separates levels, and a line a name. Several instances of the application may share it.
/// Threads: any.
class IniProfile final : public k4cmn::Profile {
 public:
    /// @param file the file; made, with its folders, at the first text stored.
    explicit IniProfile(std::filesystem::path file);

    std::string GetString(const std::string& section, const std::string& name,
                          const std::string& fallback) override;
    int WriteString(const std::string& section, const std::string& name,
                    const std::string& text) override;

    /// What went wrong with the file, for people.
    std::vector<std::string> Problems() const { return m_file.Problems(); }

 private:
    IniFile m_file;
};

}  // namespace k4suite
