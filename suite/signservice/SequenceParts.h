#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "suite/signservice/SequencePart.h"

namespace k4suite {

/// The files of one sequence, each opened once and told by its number. So many of them are open at
/// most; what is asked for next takes the place of what was used longest ago. The first one, which
/// is the sequence itself, stays open. Threads: one at a time.
class SequenceParts {
 public:
    static constexpr std::size_t kMostOpen = 16;
    /// Further files aren't looked for.
    static constexpr std::size_t kMostFiles = 4096;
    /// In all files together, further frames aren't looked up.
    static constexpr std::size_t kMostLookedUp = 524'288;

    /// @param files where the files lie; must outlive the object.
    explicit SequenceParts(k4cmn::FilesProvider& files) : m_files(files) {}

    /// The number of a file, from 0.
    /// @param path in the store.
    /// @return nothing if it isn't a sequence.
    std::optional<std::uint32_t> Find(const std::string& path);
    /// The number of a file that another one names.
    /// @param path absolute, or from the place of the file that names it.
    std::optional<std::uint32_t> Find(const std::string& path, std::uint32_t from);

    /// A file, which may be closed.
    const SequencePart& Part(std::uint32_t number) const { return *m_parts[number].part; }
    /// A file, open. @return null if it can't be opened any more.
    SequencePart* Opened(std::uint32_t number);

 private:
    struct Used {
        std::unique_ptr<SequencePart> part;
        std::uint64_t lastUse = 0;
    };

    void MakeRoom();

    k4cmn::FilesProvider& m_files;
    std::vector<Used> m_parts;
    std::map<std::string, std::optional<std::uint32_t>> m_numbers;  ///< by path
    std::size_t m_lookedUp = 0;
    std::uint64_t m_uses = 0;
};

}  // namespace k4suite
