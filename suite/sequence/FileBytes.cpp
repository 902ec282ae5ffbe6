#include "suite/sequence/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace k4suite {

std::string SystemWords() {
    return std::error_code(errno, std::generic_category()).message();
}

std::unique_ptr<FileBytes> FileBytes::Open(const std::string& path, bool writable,
                                           std::string& problem) {
    if (path.find('\0') != std::string::npos) {
        problem = "A path can't have a 0 byte.";
        return nullptr;
    }
    // Without O_NONBLOCK, opening a pipe waits for its other end.
    const int flags = (writable ? O_RDWR : O_RDONLY) | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    Descriptor file(open(path.c_str(), flags));
    if (!file) {
        problem = "Cannot open \"" + path + "\": " + SystemWords() + ".";
        return nullptr;
    }
    struct stat facts {};
    if (fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        problem = "\"" + path + "\" is not a file.";
        return nullptr;
    }
    return std::unique_ptr<FileBytes>(new FileBytes(std::move(file)));
}

std::uint64_t FileBytes::Size() {
    struct stat facts {};
    return fstat(m_file.Get(), &facts) == 0 ? static_cast<std::uint64_t>(facts.st_size) : 0;
}

std::size_t FileBytes::ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = pread(m_file.Get(), bytes.data() + done, bytes.size() - done,
                                    static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

bool FileBytes::WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            pwrite(m_file.Get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        offset += static_cast<std::uint64_t>(count);
    }
    return true;
}

bool FileBytes::Flush() {
    return fdatasync(m_file.Get()) == 0;
}

bool FileBytes::CutAt(std::uint64_t size) {
    return ftruncate(m_file.Get(), static_cast<off_t>(size)) == 0;
}

bool FileBytes::HasName() const {
    struct stat facts {};
    return fstat(m_file.Get(), &facts) == 0 && facts.st_nlink > 0;
}

}  // namespace k4suite
