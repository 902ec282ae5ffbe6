#pragma once

#include <memory>
#include <string>

#include "suite/platform/Descriptor.h"
#include "suite/sequence/ByteSource.h"

namespace k4suite {

/// A file of this machine, read by positioned reads. A file that is cut short while it is open
/// gives fewer bytes, and never more than that.
class FileBytes final : public ChangeableBytes {
 public:
    /// Opens a file.
    /// @param path native.
    /// @return null with words in `problem`: there is no such file, it may not be read (or
    ///         written), or it is no regular file.
    static std::unique_ptr<FileBytes> Open(const std::string& path, bool writable,
                                           std::string& problem);

    std::uint64_t Size() override;
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) override;
    bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) override;
    bool Flush() override;
    bool CutAt(std::uint64_t size) override;

    /// Whether the file has a name still: one that was removed, or replaced by another, hasn't.
    bool HasName() const;

    int Handle() const { return m_file.Get(); }

 private:
    explicit FileBytes(Descriptor file) : m_file(std::move(file)) {}

    Descriptor m_file;
};

/// The system's words for the present errno.
std::string SystemWords();

}  // namespace k4suite
