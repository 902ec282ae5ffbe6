#pragma once

#include <filesystem>
#include <string>
#include <utility>

namespace k4suite {

/// The folder that holds everything that the suite keeps on this machine. One home is one system:
/// settings, stores, signs.
class DataHome {
 public:
    explicit DataHome(std::filesystem::path path) : m_path(std::move(path)) {}

    /// The home that the environment names in K4_HOME, else the folder "k4400" in the user's data
    /// folder ($XDG_DATA_HOME, else ~/.local/share). The folder need not exist yet.
    static DataHome FromEnvironment();

    const std::filesystem::path& Path() const { return m_path; }
    /// The user's part of the settings.
    std::filesystem::path UserSettings() const { return m_path / "settings" / "user.ini"; }
    /// The machine's part: services, servers, signs.
    std::filesystem::path MachineSettings() const { return m_path / "settings" / "machine.ini"; }
    /// What signs keep over a restart, one folder a machine.
    std::filesystem::path SignState() const { return m_path / "state" / "signs"; }
    /// The download events that the remote service keeps.
    std::filesystem::path DownLoadEvents() const {
        return m_path / "state" / "remote" / "downloads.ini";
    }
    /// Held by the process that runs the services of this home.
    std::filesystem::path ServicesLock() const { return m_path / "services.lock"; }
    /// Drives of the store: "A:" is the folder "A" in here.
    std::filesystem::path Drives() const { return m_path / "drives"; }
    /// Network places of the store: "\\HOST\SHARE" is the folder "HOST/SHARE" in here.
    std::filesystem::path Network() const { return m_path / "network"; }

 private:
    std::filesystem::path m_path;
};

}  // namespace k4suite
