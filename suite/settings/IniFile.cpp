#include "suite/settings/IniFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QVariant>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fstream>
#include <map>
#include <string_view>
#include <utility>

#include "suite/settings/FileLock.h"
#include "suite/settings/IniValue.h"
#include "suite/settings/NameText.h"

namespace k4suite {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kPatience{5000};
constexpr char kCopyWord[] = ".new-";

QString Qt(const fs::path& path) {
    return QString::fromStdString(path.string());
}

/// Whether the toolkit can name a place: it takes texts only, and would write to a place of another
/// name.
bool IsNameable(const fs::path& path) {
    return IsUtf8(path.native());
}

/// A name beside a file that nobody else uses.
fs::path BesideIt(const fs::path& path) {
    static std::atomic<unsigned> counter{0};
    return path.string() + kCopyWord + std::to_string(getpid()) + "-" + std::to_string(++counter);
}

/// Whether a name is that of a copy beside a file whose process has ended.
bool IsLeftover(std::string_view name, std::string_view file) {
    const std::string begin = std::string(file) + kCopyWord;
    if (!name.starts_with(begin))
        return false;
    pid_t process = 0;
    const char* const end = name.data() + name.size();
    const auto [rest, error] = std::from_chars(name.data() + begin.size(), end, process);
    const bool isCopy = error == std::errc() && rest != end && *rest == '-' && process > 0;
    return isCopy && kill(process, 0) != 0 && errno == ESRCH;
}

/// Removes the copies beside a file that processes left behind which ended in the middle of a
/// change, with whatever the toolkit had put beside those.
void RemoveLeftovers(const fs::path& file) {
    std::error_code failed;
    std::vector<fs::path> leftovers;
    for (fs::directory_iterator at(file.parent_path(), failed), end; !failed && at != end;
         at.increment(failed)) {
        if (IsLeftover(at->path().filename().native(), file.filename().native()))
            leftovers.push_back(at->path());
    }
    for (const fs::path& leftover : leftovers)
        fs::remove(leftover, failed);
}

/// Reads a regular file to its end. Anything else is refused: a pipe would be waited for.
bool ReadWhole(const fs::path& path, std::string& bytes) {
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    struct stat status;
    bool isGood = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    char piece[1 << 14];
    ssize_t got = 0;
    bytes.clear();
    while (isGood && (got = read(file, piece, sizeof piece)) != 0) {
        if (got > 0)
            bytes.append(piece, static_cast<std::size_t>(got));
        else
            isGood = errno == EINTR;
    }
    close(file);
    return isGood;
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

/// Every value of a file, as text.
std::map<QString, QString> Contents(const QSettings& settings) {
    std::map<QString, QString> contents;
    for (const QString& key : settings.allKeys()) {
        contents[key] = TextOf(settings.value(key));
    }
    return contents;
}

enum class CopyState { Changed, Unchanged, Damaged, Failed };

/// Makes a change in a file that the toolkit hasn't seen, and reads it back. The file gets another
/// name by that: on a full disk the toolkit cuts a file short and calls it a success, and under the
/// same name it would answer from its memory. What it writes lies on the disk when it is done.
CopyState ChangeCopy(fs::path& copy, const std::function<void(QSettings&)>& change) {
    std::map<QString, QString> wanted;
    {
        QSettings settings(Qt(copy), QSettings::IniFormat);
        if (!IsUnderstood(settings))
            return settings.status() == QSettings::FormatError ? CopyState::Damaged
                                                               : CopyState::Failed;
        const std::map<QString, QString> before = Contents(settings);
        change(settings);
        wanted = Contents(settings);
        if (wanted == before)
            return CopyState::Unchanged;
        settings.sync();
        if (settings.status() != QSettings::NoError)
            return CopyState::Failed;
    }
    const fs::path again = copy.string() + "-again";
    std::error_code failed;
    fs::rename(copy, again, failed);
    if (failed)
        return CopyState::Failed;
    copy = again;
    const QSettings stored(Qt(copy), QSettings::IniFormat);
    return IsUnderstood(stored) && Contents(stored) == wanted ? CopyState::Changed
                                                              : CopyState::Failed;
}

/// Gives a file that takes another one's place the permissions of that one and a time of its own:
/// the toolkit reads a file again only when its size or its time has changed, and the system's own
/// times are coarser than two quick changes.
bool DressAs(const fs::path& target, const fs::path& copy) {
    std::error_code isNew;
    std::error_code failed;
    auto time = fs::file_time_type::clock::now();
    const auto before = fs::last_write_time(target, isNew);
    if (!isNew) {
        time = std::max(time, before + std::chrono::milliseconds(2));
        fs::permissions(copy, fs::status(target, failed).permissions(), failed);
    }
    if (!failed)
        fs::last_write_time(copy, time, failed);
    return !failed;
}

}  // namespace

IniFile::IniFile(fs::path path) : m_path(std::move(path)) {}

int IniFile::Read(const std::function<void(QSettings&)>& reader) {
    const std::lock_guard guard(m_mutex);
    if (!IsUsable())
        return 0;
    const std::optional<Stamp> stamp = StampNow();
    if (stamp && stamp != m_checked) {
        const Content content = Check(*stamp);
        if (content == Content::Unreadable || (content == Content::Damaged && !SetAsideIfDamaged()))
            return 0;
        m_checked = content == Content::Text ? stamp : std::nullopt;
    }
    QSettings settings(Qt(m_path), QSettings::IniFormat);
    reader(settings);
    return 1;
}

IniFile::Content IniFile::Check(const Stamp& stamp) const {
    // Of a damage that couldn't be set aside the toolkit doesn't tell a second time.
    static std::mutex mutex;
    static std::map<std::string, Stamp> damaged;
    const std::lock_guard guard(mutex);
    const auto known = damaged.find(m_path.string());
    if (known != damaged.end() && known->second == stamp)
        return Content::Damaged;
    std::string bytes;
    const Content content = Load(bytes);
    if (content != Content::Text || IsUnderstood(QSettings(Qt(m_path), QSettings::IniFormat)))
        return content;
    damaged[m_path.string()] = stamp;
    return Content::Damaged;
}

int IniFile::Update(const std::function<void(QSettings&)>& change) {
    const std::lock_guard guard(m_mutex);
    if (!IsUsable())
        return 0;
    std::error_code failed;
    fs::create_directories(m_path.parent_path(), failed);
    const FileLock lock(LockPath(), kPatience);
    if (!lock.IsHeld())
        return 0;

    std::string bytes;
    const Content content = Load(bytes);
    if (content == Content::Unreadable || (content == Content::Damaged && !SetAside()))
        return 0;
    if (content == Content::Damaged)
        bytes.clear();
    // A file that may not be written is not replaced by another one either.
    if (content == Content::Text && access(m_path.c_str(), W_OK) != 0)
        return 0;
    Result result = Replace(bytes, change);
    if (result == Result::Damaged && SetAside())
        result = Replace({}, change);
    return result == Result::Done ? 1 : 0;
}

IniFile::Result IniFile::Replace(const std::string& bytes,
                                 const std::function<void(QSettings&)>& change) const {
    const fs::path target = Target();
    fs::path copy = BesideIt(target);
    CopyState state = CopyState::Failed;
    std::error_code failed;
    if (WriteWhole(copy, bytes))
        state = ChangeCopy(copy, change);
    if (state == CopyState::Changed) {
        if (DressAs(target, copy))
            fs::rename(copy, target, failed);
        if (!failed && !fs::exists(copy, failed)) {
            RemoveLeftovers(target);
            return Result::Done;
        }
        state = CopyState::Failed;
    }
    fs::remove(copy, failed);
    if (state == CopyState::Damaged)
        return Result::Damaged;
    return state == CopyState::Unchanged ? Result::Done : Result::Failed;
}

IniFile::Content IniFile::Load(std::string& bytes) const {
    std::error_code failed;
    const fs::file_status status = fs::status(m_path, failed);
    if (status.type() == fs::file_type::not_found)
        return Content::Absent;
    if (failed || status.type() != fs::file_type::regular || !ReadWhole(m_path, bytes))
        return Content::Unreadable;
    const bool isText = IsUtf8(bytes) && bytes.find('\0') == std::string::npos;
    return isText ? Content::Text : Content::Damaged;
}

bool IniFile::IsUsable() {
    for (const fs::path& path : {m_path, Target()}) {
        if (IsNameable(path))
            continue;
        Report(Qt(path).toStdString() + " is no place that can be used.");
        return false;
    }
    return true;
}

bool IniFile::SetAsideIfDamaged() {
    const FileLock lock(LockPath(), kPatience);
    const Content content = lock.IsHeld() ? LookAgain() : Content::Unreadable;
    if (content == Content::Damaged)
        return SetAside();
    if (content == Content::Unreadable)
        Report(m_path.string() + " is damaged.");
    return content != Content::Unreadable;
}

IniFile::Content IniFile::LookAgain() const {
    // Another process may have been quicker. The toolkit is shown a copy, which it reads for the
    // first time.
    std::string bytes;
    Content content = Load(bytes);
    if (content != Content::Text)
        return content;
    const fs::path copy = BesideIt(Target());
    if (!WriteWhole(copy, bytes))
        content = Content::Unreadable;
    else if (!IsUnderstood(QSettings(Qt(copy), QSettings::IniFormat)))
        content = Content::Damaged;
    std::error_code ignored;
    fs::remove(copy, ignored);
    return content;
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
    const fs::file_type type = fs::status(m_path, failed).type();
    if (type == fs::file_type::not_found)
        return std::nullopt;
    Stamp stamp;
    stamp.time = fs::last_write_time(m_path, failed);
    if (type == fs::file_type::regular)
        stamp.size = fs::file_size(m_path, failed);
    return stamp;
}

fs::path IniFile::Target() const {
    // A file that a person keeps elsewhere behind a link stays there.
    std::error_code failed;
    if (!fs::is_symlink(m_path, failed))
        return m_path;
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
