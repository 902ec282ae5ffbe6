#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace k4suite {

enum class CopyResult {
    Done,
    Cancelled,
    Failed,
    DiskFull,  ///< the next file has no better chance
};

/// Told after each piece with the bytes of this file that are done; false cancels.
using CopyProgress = std::function<bool(std::uint64_t done)>;

/// Copies one regular file, with its permissions and its times; a link's target is what is copied,
/// and holes stay holes. The copy appears under its name only when all of it is on the disk:
/// whatever goes wrong or is cancelled leaves nothing behind and the file that was there as it was.
/// Until then its name begins with kUnfinishedCopy.
/// Anything but a regular file is refused without being opened: a pipe would wait for ever.
///
/// @param target  the file to make, in a folder that exists.
/// @param replace whether a file of that name may be replaced.
CopyResult CopyOneFile(const std::string& source, const std::string& target, bool replace,
                       const CopyProgress& progress);

}  // namespace k4suite
