#include "suite/settings/IniFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <utility>

#include "suite/settings/FileLock.h"
#include "suite/settings/NameText.h"

namespace k4suite {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kPatience{5000};

QString Qt(const fs::path& path) {
    return QString::fromStdString(path.string());
}

/// A name beside a file that nobody else uses.
fs::path BesideIt(const fs::path& path) {
    static std::atomic<unsigned> counter{0};
    return path.string() + ".new-" + std::to_string(getpid()) + "-" + std::to_string(++counter);
}

/// Waits until the content of a file is on the disk.
bool Flush(const fs::path& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool done = fsync(file) == 0;
    close(file);
    return done;
}

bool WriteWhole(const fs::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    return file.good();
}

/// Whether the toolkit understands all of a file. It reads a section when it is first asked for
/// something in it, and tells of a damage only then; so it must not have seen this content before.
bool IsUnderstood(const QSettings& settings) {
    settings.allKeys();
    return settings.status() == QSettings::NoError;
}

}  // namespace

IniFile::IniFile(fs::path path) : m_path(std::move(path)) {}

int IniFile::Read(const std::function<void(QSettings&)>& reader) {
    const std::lock_guard guard(m_mutex);
    const std::optional<Stamp> stamp = StampNow();
    if (stamp && stamp != m_checked) {
        std::string bytes;
        Content content = Load(bytes);
        if (content == Content::Text && !IsUnderstood(QSettings(Qt(m_path), QSettings::IniFormat)))
            content = Content::Damaged;
        if (content == Content::Unreadable || (content == Content::Damaged && !SetAsideIfDamaged()))
            return 0;
        m_checked = content == Content::Text ? stamp : std::nullopt;
    }
    QSettings settings(Qt(m_path), QSettings::IniFormat);
    reader(settings);
    return 1;
}

int IniFile::Update(const std::function<void(QSettings&)>& change) {
    const std::lock_guard guard(m_mutex);
    std::error_code failed;
    fs::create_directories(m_path.parent_path(), failed);
    const FileLock lock(LockPath(), kPatience);
    if (!lock.IsHeld())
        return 0;

    std::string bytes;
    const Content content = Load(bytes);
    if (content == Content::Unreadable || (content == Content::Damaged && !SetAside()))
        return 0;
    bool isDamaged = false;
    if (content == Content::Text) {
        if (Replace(bytes, change, isDamaged))
            return 1;
        if (!isDamaged || !SetAside())
            return 0;
    }
    return Replace({}, change, isDamaged);
}

int IniFile::Replace(const std::string& bytes, const std::function<void(QSettings&)>& change,
                     bool& isDamaged) {
    const fs::path target = Target();
    const fs::path copy = BesideIt(target);
    bool isDone = WriteWhole(copy, bytes);
    if (isDone) {
        QSettings settings(Qt(copy), QSettings::IniFormat);
        isDone = IsUnderstood(settings);
        isDamaged = settings.status() == QSettings::FormatError;
        if (isDone) {
            change(settings);
            settings.sync();
            isDone = settings.status() == QSettings::NoError;
        }
    }
    std::error_code failed;
    if (isDone) {
        // Each content gets a time of its own: the toolkit reads a file again only when its size or
        // its time has changed, and the system's own times are coarser than two quick changes.
        const auto before = fs::last_write_time(target, failed);
        const auto now = fs::file_time_type::clock::now();
        const auto time = failed ? now : std::max(now, before + std::chrono::milliseconds(2));
        if (const fs::perms kept = fs::status(target, failed).permissions(); !failed)
            fs::permissions(copy, kept, failed);
        fs::last_write_time(copy, time, failed);
        isDone = !failed && Flush(copy);
    }
    if (isDone)
        fs::rename(copy, target, failed);
    if (isDone && !failed)
        return 1;
    fs::remove(copy, failed);
    return 0;
}

IniFile::Content IniFile::Load(std::string& bytes) const {
    std::error_code failed;
    const fs::file_status status = fs::status(m_path, failed);
    if (status.type() == fs::file_type::not_found)
        return Content::Absent;
    std::ifstream file(m_path, std::ios::binary);
    if (failed || status.type() != fs::file_type::regular || !file)
        return Content::Unreadable;
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    if (file.bad())
        return Content::Unreadable;
    const bool isText = IsUtf8(bytes) && bytes.find('\0') == std::string::npos;
    return isText ? Content::Text : Content::Damaged;
}

bool IniFile::SetAsideIfDamaged() {
    const FileLock lock(LockPath(), kPatience);
    if (!lock.IsHeld()) {
        Report(m_path.string() + " is damaged.");
        return false;
    }
    // Another process may have been quicker: what lies here now is looked at again, in a copy that
    // the toolkit reads for the first time.
    std::string bytes;
    Content content = Load(bytes);
    if (content == Content::Text) {
        const fs::path copy = BesideIt(Target());
        if (!WriteWhole(copy, bytes)) {
            std::error_code ignored;
            fs::remove(copy, ignored);
            return false;
        }
        if (!IsUnderstood(QSettings(Qt(copy), QSettings::IniFormat)))
            content = Content::Damaged;
        std::error_code ignored;
        fs::remove(copy, ignored);
    }
    return content == Content::Damaged ? SetAside() : content != Content::Unreadable;
}

bool IniFile::SetAside() {
    std::error_code failed;
    for (int number = 1;; ++number) {
        const fs::path aside = m_path.string() + ".damaged-" + std::to_string(number);
        if (fs::exists(fs::symlink_status(aside, failed)))
            continue;
        fs::rename(m_path, aside, failed);
        if (failed)
            Report(m_path.string() + " is damaged.");
        else
            Report(m_path.string() + " was damaged; it is kept as " + aside.string() + ".");
        return !failed;
    }
}

std::optional<IniFile::Stamp> IniFile::StampNow() const {
    std::error_code failed;
    Stamp stamp;
    stamp.time = fs::last_write_time(m_path, failed);
    if (!failed)
        stamp.size = fs::is_regular_file(m_path, failed) ? fs::file_size(m_path, failed) : 0;
    if (fs::status(m_path, failed).type() == fs::file_type::not_found)
        return std::nullopt;
    return stamp;
}

fs::path IniFile::Target() const {
    // A file that a person keeps elsewhere behind a link stays there.
    std::error_code failed;
    const fs::path real = fs::canonical(m_path, failed);
    return failed ? m_path : real;
}

fs::path IniFile::LockPath() const {
    return m_path.string() + ".lock";
}

void IniFile::Report(const std::string& problem) {
    if (std::find(m_problems.begin(), m_problems.end(), problem) == m_problems.end())
        m_problems.push_back(problem);
}

std::vector<std::string> IniFile::Problems() const {
    const std::lock_guard guard(m_mutex);
    return m_problems;
}

}  // namespace k4suite
