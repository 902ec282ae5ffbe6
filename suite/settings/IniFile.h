#pragma once

#include <QSettings>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace k4suite {

/// One INI file that several processes share.
///
/// A change is made in a copy beside the file, under a lock that every process takes, and the copy
/// then takes the file's place: a reader sees the old content or the new one, a full disk leaves
/// the old one, and two writers never lose each other's change. Reading takes no lock.
///
/// A file that can't be understood is never overwritten: it is set aside as "NAME.damaged-1" (2, 3,
/// and so on), Problems() tells of it, and what follows begins with an empty file.
///
/// A copy that was left behind by a process that ended in the middle of a change goes with the next
/// change that is stored.
///
/// A path that isn't UTF-8, or a link to one, is no place for such a file: Problems() tells of it,
/// and nothing is read or written, there or elsewhere. Anything but a regular file can't be read.
///
/// Threads: any.
class IniFile {
 public:
    explicit IniFile(std::filesystem::path path);

    /// Hands the content to a reader; a file that doesn't exist reads as an empty one. The reader
    /// must not change it.
    /// @return 1, or 0 without calling the reader if the content can't be read.
    int Read(const std::function<void(QSettings&)>& reader);

    /// Makes a change and stores it.
    /// @return 1 if it is stored; 0 if it isn't, with the file as it was.
    int Update(const std::function<void(QSettings&)>& change);

    /// What went wrong, for people; each thing once.
    std::vector<std::string> Problems() const;

 private:
    enum class Content { Absent, Text, Damaged, Unreadable };
    enum class Result { Done, Damaged, Failed };
    struct Stamp {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        bool operator==(const Stamp&) const = default;
    };

    Content Load(std::string& bytes) const;
    Content Check(const Stamp& stamp) const;
    std::optional<Stamp> StampNow() const;
    bool IsUsable();
    std::filesystem::path Target() const;
    std::filesystem::path LockPath() const;
    /// These three with the lock held.
    Content LookAgain() const;
    bool SetAside();
    Result Replace(const std::string& bytes, const std::function<void(QSettings&)>& change) const;
    bool SetAsideIfDamaged();
    void Report(const std::string& problem);

    const std::filesystem::path m_path;
    mutable std::mutex m_mutex;
    std::optional<Stamp> m_checked;
    std::vector<std::string> m_problems;
};

}  // namespace k4suite
