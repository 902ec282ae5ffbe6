#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/signservice/FrameSource.h"
#include "suite/signservice/PlayOrder.h"

namespace k4suite {

/// What signs can play: the test pattern that is always there, and files of the store.
/// Threads: any, as far as the store allows.
class SequenceStore {
 public:
    /// A longer schedule isn't taken.
    static constexpr std::size_t kLongestSchedule = 64 * 1024;

    /// @param files where the files lie; must outlive the object.
    explicit SequenceStore(k4cmn::FilesProvider& files) : m_files(files) {}

    /// Whether a file is a sequence that can be played: the test pattern's name, or a file of the
    /// store with the ending SQ4 or AVI, in any case.
    bool HasSequence(const std::string& file) const;

    /// The frames of a sequence.
    /// @return null if HasSequence() is false.
    std::unique_ptr<FrameSource> Open(const std::string& file,
                                      const k4cmn::SignSettings& sign) const;

    /// The frames of the test pattern.
    static std::unique_ptr<FrameSource> OpenTestPattern(const k4cmn::SignSettings& sign);

    /// The bytes of a schedule: a file of the store with the ending SD4, in any case.
    /// @return nothing if there is no such file, or it is too long.
    std::optional<std::vector<std::uint8_t>> ReadSchedule(const std::string& file) const;

 private:
    bool HasFile(const std::string& file) const;

    k4cmn::FilesProvider& m_files;
};

/// Whether a name can stand in the replies of the service: text, not empty, not too long, without
/// control characters.
bool IsFileName(std::string_view name);

}  // namespace k4suite
