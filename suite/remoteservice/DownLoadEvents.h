#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "suite/remoteservice/DownLoadEvent.h"
#include "suite/settings/IniFile.h"

namespace k4suite {

/// The download events that have been registered, in their order, kept in an INI file: a section
/// "DownLoad1", "DownLoad2" and so on for each, with the lines "Path" and "When".
/// Threads: one at a time.
class DownLoadEvents {
 public:
    /// The highest number of a section; more aren't taken.
    static constexpr std::size_t kMost = 1000;

    /// Reads what the file holds.
    explicit DownLoadEvents(const std::filesystem::path& file);

    /// Adds an event and stores it. @return false if it can't be stored; it isn't there then.
    bool Add(const DownLoadEvent& event);
    const std::vector<DownLoadEvent>& All() const { return m_events; }

    /// What went wrong, for people.
    std::vector<std::string> Problems() const;

 private:
    void Read(QSettings& file);

    IniFile m_file;
    std::vector<DownLoadEvent> m_events;
    std::size_t m_last = 0;  ///< the highest number in the file
    std::vector<std::string> m_problems;
};

}  // namespace k4suite
