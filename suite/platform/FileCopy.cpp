#include "suite/platform/FileCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/Characters.h"
#include "suite/platform/Descriptor.h"
#include "suite/platform/FileSystem.h"
#include "suite/store/UnfinishedCopy.h"

namespace k4suite {

namespace {

constexpr std::size_t kPiece = 1 << 20;
constexpr std::size_t kFilesOfGroup = 64;
constexpr std::uint64_t kBytesOfGroup = 16 << 20;
constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

CopyResult ResultOf(int error) {
    if (!error)
        return CopyResult::Done;
    if (error == ECANCELED)
        return CopyResult::Cancelled;
    return error == ENOSPC || error == EDQUOT ? CopyResult::DiskFull : CopyResult::Failed;
}

Descriptor OpenRegular(const std::string& path, struct stat& status) {
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return Descriptor();
    Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    // Again, of what was opened: something else may have taken the name in between.
    if (!file || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
        return Descriptor();
    return file;
}

/// A stretch of a file without holes.
struct Stretch {
    off_t begin;
    off_t end;
};

/// The next stretch from `at` on; behind the size, and where holes can't be told, all that follows.
Stretch NextStretch(int file, off_t at, off_t size) {
    constexpr off_t kAll = std::numeric_limits<off_t>::max();
    if (at >= size)
        return {at, kAll};
    const off_t data = lseek(file, at, SEEK_DATA);
    if (data < 0)
        return {errno == ENXIO ? size : at, kAll};  // ENXIO: nothing but a hole up to the end
    const off_t hole = lseek(file, data, SEEK_HOLE);
    return {data, hole > data ? hole : kAll};
}

int CopyBytes(int from, int to, off_t size, std::vector<char>& piece,
              const CopyProgress& progress) {
    off_t at = 0;
    while (true) {
        const Stretch next = NextStretch(from, at, size);
        at = next.begin;
        const auto length = std::min<off_t>(kPiece, next.end - at);
        const ssize_t got = pread(from, piece.data(), static_cast<std::size_t>(length), at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        if (got == 0)
            break;
        if (lseek(to, at, SEEK_SET) < 0)
            return errno;
        if (const int failure = WriteAll(to, piece.data(), static_cast<std::size_t>(got)))
            return failure;
        at += got;
        if (!progress(static_cast<std::uint64_t>(at)))
            return ECANCELED;
    }
    // A hole at the end leaves nothing to write.
    return ftruncate(to, at) == 0 ? 0 : errno;
}

}  // namespace

/// A copy that has no name of its own yet, in the folder of the finished one. Gone with the object,
/// unless it was named.
class FileCopies::Unfinished {
 public:
    Unfinished(std::string target, bool replace)
        : m_target(std::move(target)),
          m_replace(replace),
          m_name(FolderOf(m_target) + "/" + std::string(kUnfinishedCopy) + "XXXXXX"),
          m_file(mkostemp(m_name.data(), O_CLOEXEC)),
          m_isThere(static_cast<bool>(m_file)) {}
    ~Unfinished() {
        if (m_isThere)
            unlink(m_name.c_str());
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    const Descriptor& File() const { return m_file; }
    const std::string& Target() const { return m_target; }
    dev_t Device() const { return m_device; }

    /// Gives it permissions and times.
    int Dress(const struct stat& source) {
        struct stat own;
        if (fstat(m_file.Get(), &own) != 0)
            return errno;
        m_device = own.st_dev;
        const timespec times[] = {source.st_atim, source.st_mtim};
        // Permissions that the disk doesn't know aren't worth the copy.
        if (fchmod(m_file.Get(), source.st_mode & kPermissions) != 0 && errno != EPERM &&
            errno != ENOTSUP)
            return errno;
        return futimens(m_file.Get(), times) != 0 && errno != EPERM ? errno : 0;
    }

    /// Makes sure of its bytes, unless they are on the disk, and gives it its name.
    int Name(bool isOnDisk) {
        if ((!isOnDisk && fsync(m_file.Get()) != 0) || m_file.Close() != 0)
            return errno;
        if (!m_replace) {
            const int failure = RenameToFreeName(m_name, m_target);
            m_isThere = failure != 0;
            return failure;
        }
        m_isThere = std::rename(m_name.c_str(), m_target.c_str()) != 0;
        return m_isThere ? errno : 0;
    }

 private:
    std::string m_target;
    bool m_replace;
    std::string m_name;
    Descriptor m_file;
    bool m_isThere;
    dev_t m_device = 0;
};

FileCopies::FileCopies() = default;

FileCopies::~FileCopies() = default;

CopyResult FileCopies::Copy(const std::string& source, const std::string& target, bool replace,
                            const CopyProgress& progress) {
    struct stat status;
    const Descriptor from = OpenRegular(source, status);
    if (!from)
        return CopyResult::Failed;
    auto copy = std::make_unique<Unfinished>(target, replace);
    if (!copy->File())
        return ResultOf(errno);

    m_piece.resize(kPiece);
    int failure = CopyBytes(from.Get(), copy->File().Get(), status.st_size, m_piece, progress);
    if (!failure)
        failure = copy->Dress(status);
    if (failure)
        return ResultOf(failure);
    m_bytes += static_cast<std::uint64_t>(status.st_size);
    m_written.push_back(std::move(copy));
    return CopyResult::Done;
}

bool FileCopies::IsFull() const {
    return m_written.size() >= kFilesOfGroup || m_bytes >= kBytesOfGroup;
}

bool FileCopies::IsPending(const std::string& target) const {
    return std::any_of(m_written.begin(), m_written.end(), [&](const auto& copy) {
        return k4cmn::IsSameWithoutCase(copy->Target(), target);
    });
}

bool FileCopies::AreOnDisk() const {
    if (m_written.size() < 2)
        return false;
    const Unfinished& first = *m_written.front();
    const bool isOneDisk = std::all_of(m_written.begin(), m_written.end(), [&](const auto& copy) {
        return copy->Device() == first.Device();
    });
    return isOneDisk && syncfs(first.File().Get()) == 0;
}

CopyResult FileCopies::Finish() {
    // Where the disk as a whole has failed, each file is asked whether it was the one.
    const bool areOnDisk = AreOnDisk();
    CopyResult worst = CopyResult::Done;
    for (const auto& copy : m_written)
        worst = std::max(worst, ResultOf(copy->Name(areOnDisk)));
    m_written.clear();
    m_bytes = 0;
    return worst;
}

}  // namespace k4suite
