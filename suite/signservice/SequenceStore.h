#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/signservice/FrameSource.h"
#include "suite/signservice/PlayOrder.h"

namespace k4suite {

/// What signs can play: the test pattern that is always there, and sequence files of the store.
/// Films (AVI) aren't among them, since the service can't decode them. Threads: any, as far as the
/// store allows.
class SequenceStore {
 public:
    /// @param files where the files lie; must outlive the object.
    explicit SequenceStore(k4cmn::FilesProvider& files) : m_files(files) {}

    /// The frames of a sequence: the test pattern by its name, or a file of the store with the
    /// ending SQ4, in any case.
    /// @param sign the sign that is to show them.
    /// @return null if the file can't be played; see SequenceFrames::Open().
    std::unique_ptr<FrameSource> Open(const std::string& file,
                                      const k4cmn::SignSettings& sign) const;

    /// The bytes of a schedule: a file of the store with the ending SD4, in any case.
    /// @return nothing if there is no such file, or it is too long.
    std::optional<std::vector<std::uint8_t>> ReadSchedule(const std::string& file) const;

    /// The name of a sequence that a schedule names, as seen from the schedule's file.
    std::string SequenceOfSchedule(const std::string& sequence, const std::string& schedule) const;

 private:
    k4cmn::FilesProvider& m_files;
};

}  // namespace k4suite
