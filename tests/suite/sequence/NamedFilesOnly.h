#pragma once

namespace k4test {

/// Makes this process' disks such as can't hold a file without a name, as some of other machines
/// can't, while it stands. One lives at a time.
class NamedFilesOnly {
 public:
    NamedFilesOnly();
    ~NamedFilesOnly();
    NamedFilesOnly(const NamedFilesOnly&) = delete;
    NamedFilesOnly& operator=(const NamedFilesOnly&) = delete;
};

}  // namespace k4test
