#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace k4suite {

enum class CopyResult {
    Done,
    Cancelled,
    Failed,
    DiskFull,  ///< the next file has no better chance
};

/// Told after each piece with the bytes of this file that are done; false cancels.
using CopyProgress = std::function<bool(std::uint64_t done)>;

/// Copies regular files, each with its permissions and its times; a link's target is what is
/// copied, and holes stay holes. A copy appears under its name only when all of it is on the disk:
/// whatever goes wrong or is cancelled leaves nothing of it behind and the file that was there as
/// it was. Until then its name begins with kUnfinishedCopy.
///
/// A disk takes as long to make sure of one small file as of many. So copies are written one after
/// the other, and get their names together: the caller calls Finish() when there is enough to do
/// (IsFull()), and in the end. Copies that have no names by then go with the object.
///
/// One thread.
class FileCopies {
 public:
    FileCopies();
    ~FileCopies();
    FileCopies(const FileCopies&) = delete;
    FileCopies& operator=(const FileCopies&) = delete;

    /// Writes the copy of one file. Anything but a regular file is refused without being opened: a
    /// pipe would wait for ever.
    /// @param target  the file to make, in a folder that exists; not one that IsPending().
    /// @param replace whether a file of that name may be replaced.
    CopyResult Copy(const std::string& source, const std::string& target, bool replace,
                    const CopyProgress& progress);
    /// Whether a copy that has no name yet is to get this one, case not counting.
    bool IsPending(const std::string& target) const;
    /// Whether enough is written to be worth Finish().
    bool IsFull() const;

    /// Makes sure of all that is written, and gives it its names. A copy that can't get its name
    /// doesn't keep the others from theirs.
    /// @return Done, also if there was nothing to do, else the worst that happened.
    CopyResult Finish();

 private:
    class Unfinished;

    bool AreOnDisk() const;

    std::vector<std::unique_ptr<Unfinished>> m_written;
    std::uint64_t m_bytes = 0;  ///< of the files of m_written
    std::vector<char> m_piece;
};

}  // namespace k4suite
