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

#include "suite/platform/Descriptor.h"
#include "suite/platform/FileSystem.h"
#include "suite/store/UnfinishedCopy.h"

namespace k4suite {

namespace {

constexpr std::size_t kPiece = 1 << 20;
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

/// The unfinished copy, in the folder of the finished one. Gone with the object, unless kept.
class Unfinished {
 public:
    explicit Unfinished(const std::string& target)
        : m_name(FolderOf(target) + "/" + std::string(kUnfinishedCopy) + "XXXXXX"),
          m_file(mkostemp(m_name.data(), O_CLOEXEC)),
          m_isThere(static_cast<bool>(m_file)) {}
    ~Unfinished() {
        if (m_isThere)
            unlink(m_name.c_str());
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    Descriptor& File() { return m_file; }

    /// Gives it permissions and times, makes sure of its bytes, and gives it its name.
    int Finish(const struct stat& source, const std::string& target, bool replace) {
        const timespec times[] = {source.st_atim, source.st_mtim};
        // Permissions that the disk doesn't know aren't worth the copy.
        if (fchmod(m_file.Get(), source.st_mode & kPermissions) != 0 && errno != EPERM &&
            errno != ENOTSUP)
            return errno;
        if (futimens(m_file.Get(), times) != 0 && errno != EPERM)
            return errno;
        if (fsync(m_file.Get()) != 0 || m_file.Close() != 0)
            return errno;
        if (!replace) {
            const int failure = RenameToFreeName(m_name, target);
            m_isThere = failure != 0;
            return failure;
        }
        m_isThere = std::rename(m_name.c_str(), target.c_str()) != 0;
        return m_isThere ? errno : 0;
    }

 private:
    std::string m_name;
    Descriptor m_file;
    bool m_isThere;
};

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

int CopyBytes(int from, int to, off_t size, const CopyProgress& progress) {
    std::vector<char> piece(kPiece);
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

CopyResult CopyOneFile(const std::string& source, const std::string& target, bool replace,
                       const CopyProgress& progress) {
    struct stat status;
    const Descriptor from = OpenRegular(source, status);
    if (!from)
        return CopyResult::Failed;
    Unfinished copy(target);
    if (!copy.File())
        return ResultOf(errno);

    if (const int failure = CopyBytes(from.Get(), copy.File().Get(), status.st_size, progress))
        return ResultOf(failure);
    return ResultOf(copy.Finish(status, target, replace));
}

}  // namespace k4suite
