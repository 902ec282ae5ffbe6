#include "suite/access/HomeDrives.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace k4suite {

HomeDrives::HomeDrives(DataHome home) : m_home(std::move(home)) {}

std::vector<std::string> HomeDrives::RemovableRoots() {
    std::vector<std::string> roots;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        std::error_code unreadable;
        if (std::filesystem::is_symlink(m_home.Drives() / std::string(1, letter), unreadable))
            roots.push_back(std::string(1, letter) + ":\\");
    }
    return roots;
}

}  // namespace k4suite
