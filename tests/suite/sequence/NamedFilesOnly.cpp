#include "tests/suite/sequence/NamedFilesOnly.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>

namespace k4test {

namespace {

std::atomic<bool> isNamedOnly = false;

}  // namespace

NamedFilesOnly::NamedFilesOnly() {
    isNamedOnly = true;
}

NamedFilesOnly::~NamedFilesOnly() {
    isNamedOnly = false;
}

}  // namespace k4test

/// Stands before the system's own in this program.
extern "C" int open(const char* path, int flags, ...) {
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    if (isUnnamed && k4test::isNamedOnly) {
        errno = EOPNOTSUPP;
        return -1;
    }
    mode_t mode = 0;
    if (isUnnamed || (flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
    }
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
