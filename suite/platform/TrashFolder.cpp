#include "suite/platform/TrashFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/contracts/Clock.h"
#include "suite/platform/Descriptor.h"
#include "suite/platform/FileSystem.h"

namespace k4suite {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kPrivate = 0700;
constexpr std::size_t kLongestName = 255 - sizeof(".trashinfo") + 1;
constexpr int kPlainTries = 100;
constexpr int kTries = 200;

int MakeFolder(const std::string& folder) {
    return mkdir(folder.c_str(), kPrivate) == 0 || errno == EEXIST ? 0 : errno;
}

int MakeFolders(const fs::path& folder) {
    std::error_code ignored;
    if (folder.empty() || fs::is_directory(folder, ignored))
        return 0;
    const int failure = MakeFolders(folder.parent_path());
    return failure ? failure : MakeFolder(folder.string());
}

/// The first `length` bytes of a name, less what would cut a UTF-8 character.
std::string Shortened(std::string name, std::size_t length) {
    if (name.size() <= length)
        return name;
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80)
        --length;
    name.resize(length);
    return name;
}

/// The name that the n-th try gives a file in the trash: "a.txt", "a 2.txt", and so on; then
/// numbers by chance, so that many files of one name don't take ever longer.
std::string NameInTrash(const std::string& name, int attempt) {
    if (attempt == 1)
        return Shortened(name, kLongestName);
    static thread_local std::mt19937_64 chance{std::random_device{}()};
    const std::string mark =
        " " + (attempt <= kPlainTries ? std::to_string(attempt) : std::to_string(chance()));
    const fs::path parts(name);
    std::string extension = parts.extension().string();
    std::string stem = parts.stem().string();
    if (extension.size() + mark.size() >= kLongestName) {
        stem = name;
        extension.clear();
    }
    return Shortened(stem, kLongestName - mark.size() - extension.size()) + mark + extension;
}

std::string LocalTime() {
    const std::time_t now =
        std::chrono::system_clock::to_time_t(k4cmn::Provided<k4cmn::Clock>::Current().Now());
    std::tm local{};
    tzset();
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    return text;
}

/// The room that a folder takes on its disk, in bytes.
std::uint64_t RoomOf(const std::string& folder) {
    constexpr std::uint64_t kBlock = 512;
    std::uint64_t blocks = 0;
    struct stat status;
    std::error_code failure;
    fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied,
                                        failure);
    for (const fs::recursive_directory_iterator end; !failure && at != end; at.increment(failure)) {
        if (lstat(at->path().c_str(), &status) == 0)
            blocks += static_cast<std::uint64_t>(status.st_blocks);
    }
    if (lstat(folder.c_str(), &status) == 0)
        blocks += static_cast<std::uint64_t>(status.st_blocks);
    return blocks * kBlock;
}

}  // namespace

std::string PercentEncoded(const std::string& path) {
    std::string encoded;
    for (const char byte : path) {
        const bool isPlain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= '0' && byte <= '9') ||
                             std::string("/-_.~").find(byte) != std::string::npos;
        encoded += isPlain ? std::string(1, byte)
                           : k4cmn::Format("%%%02X", static_cast<unsigned char>(byte));
    }
    return encoded;
}

TrashFolder::TrashFolder(std::string folder, std::string top)
    : m_folder(std::move(folder)), m_top(std::move(top)) {}

bool TrashFolder::IsTrusted(const std::string& folder) const {
    struct stat status;
    if (m_top.empty())  // the user's own folder may be a link to where there is more room
        return stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid();
}

int TrashFolder::Prepare(bool parents) const {
    int failure = parents ? MakeFolders(fs::path(m_folder).parent_path()) : 0;
    for (const std::string& folder : {m_folder, m_folder + "/files", m_folder + "/info"}) {
        if (!failure)
            failure = MakeFolder(folder);
        if (!failure && !IsTrusted(folder))
            failure = EPERM;
    }
    return failure;
}

int TrashFolder::Take(const std::string& path, bool& itsFault) const {
    int failure = EEXIST;
    for (int attempt = 1; failure == EEXIST && attempt <= kTries; ++attempt)
        failure = TakeAs(path, NameInTrash(NameOf(path), attempt), itsFault);
    return failure;
}

int TrashFolder::TakeAs(const std::string& path, const std::string& name, bool& itsFault) const {
    // The info file is what reserves the name, and it is there before the file goes: a crash leaves
    // a note too many at worst, never a file that nobody knows the origin of.
    const std::string infoFile = m_folder + "/info/" + name + ".trashinfo";
    const std::string file = m_folder + "/files/" + name;
    itsFault = false;
    if (const int failure = WriteInfo(infoFile, path))
        return failure;

    const int failure = RenameToFreeName(path, file);
    if (failure) {
        unlink(infoFile.c_str());
        itsFault = failure != EXDEV && failure != ENOSPC && failure != EDQUOT && failure != EEXIST;
        return failure;
    }
    NoteSize(name);
    return 0;
}

int TrashFolder::WriteInfo(const std::string& infoFile, const std::string& path) const {
    const std::string origin =
        m_top.empty() ? path : fs::path(path).lexically_relative(m_top).string();
    const std::string text =
        "[Trash Info]\nPath=" + PercentEncoded(origin) + "\nDeletionDate=" + LocalTime() + "\n";

    Descriptor info(open(infoFile.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                         S_IRUSR | S_IWUSR));
    if (!info)
        return errno;
    int failure = WriteAll(info.Get(), text.data(), text.size());
    if (info.Close() != 0 && !failure)
        failure = errno;
    if (failure)
        unlink(infoFile.c_str());
    return failure;
}

void TrashFolder::NoteSize(const std::string& name) const {
    const std::string folder = m_folder + "/files/" + name;
    struct stat kind;
    struct stat info;
    if (lstat(folder.c_str(), &kind) != 0 || !S_ISDIR(kind.st_mode) ||
        stat((m_folder + "/info/" + name + ".trashinfo").c_str(), &info) != 0)
        return;

    // A cache for those who show the trash. What can't be noted costs them a look, no more.
    const std::string sizes = m_folder + "/directorysizes";
    std::string text;
    if (std::ifstream present(sizes, std::ios::binary); present)
        text.assign(std::istreambuf_iterator<char>(present), {});
    text += std::to_string(RoomOf(folder)) + " " + std::to_string(info.st_mtime) + " " +
            PercentEncoded(name) + "\n";

    std::string temporary = sizes + ".XXXXXX";
    Descriptor out(mkostemp(temporary.data(), O_CLOEXEC));
    if (!out)
        return;
    if (WriteAll(out.Get(), text.data(), text.size()) != 0 || out.Close() != 0 ||
        std::rename(temporary.c_str(), sizes.c_str()) != 0)
        unlink(temporary.c_str());
}

}  // namespace k4suite
