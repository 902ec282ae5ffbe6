#pragma once

#include <QSaveFile>

namespace k4ctl {

/// Completes a file that was written beside its place.
/// @return false, with words in the file's errorString(), where not all of it could be written;
///         what was written goes with the object then.
inline bool CommitFile(QSaveFile& file) {
    // Committing doesn't look whether the last bytes came through. The first try on a disk that is
    // full writes a part and can't say why there is no more of it; the second one can.
    return (file.flush() || file.flush()) && file.commit();
}

}  // namespace k4ctl
