#pragma once

#include <sys/types.h>

#include <vector>

namespace k4test {

/// Tells which files and folders this process had written to the disk by fsync(), in order, since
/// the object was made. One lives at a time.
class FlushedFiles {
 public:
    FlushedFiles();
    ~FlushedFiles();
    FlushedFiles(const FlushedFiles&) = delete;
    FlushedFiles& operator=(const FlushedFiles&) = delete;

    const std::vector<ino_t>& Inodes() const { return m_inodes; }

 private:
    friend struct FlushRecorder;

    std::vector<ino_t> m_inodes;
};

}  // namespace k4test
