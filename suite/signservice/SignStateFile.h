#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "suite/signservice/SignKept.h"

namespace k4suite {

/// A name as a file's name: letters, digits, blanks, '-', '_' and inner dots stay, every other byte
/// becomes "%XX", and a name too long for the file system ends in a number that stands for all of
/// it. Different names give different file names.
std::string StateFileName(std::string_view name);

/// The file that holds what one sign keeps. It is replaced as a whole, so that it is there in full
/// at any time.
class SignStateFile {
 public:
    /// @param folder where states lie; made when it is first written to.
    SignStateFile(const std::filesystem::path& folder, std::string_view machine,
                  std::string_view sign);

    const std::filesystem::path& Path() const { return m_path; }

    /// Reads the state. A file that can't be understood is renamed to its name with ".damaged-1",
    /// or the next number that is free.
    /// @param problem gets words for people if the file had to be set aside or can't be read.
    /// @return nothing if there is no usable file.
    std::optional<SignKept> Read(std::string& problem) const;
    /// @param problem gets words for people on failure.
    /// @return false on failure; what was there before is then untouched.
    bool Write(const SignKept& kept, std::string& problem) const;

 private:
    std::string SetAside(const char* reason) const;

    std::filesystem::path m_path;
};

}  // namespace k4suite
