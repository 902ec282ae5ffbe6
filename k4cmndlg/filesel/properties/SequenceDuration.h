#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// How long a sequence plays, with the sequences that it includes, and those that they include, to
/// a depth of 8.
///
/// A path in an include frame begins where the path before it led: there is one remembered path,
/// shared by all levels, which is set to the sequence's own only for the fields of the sequence
/// itself. A path that leads to the sequence itself is read from the object that is open, without
/// opening the file again. What can't be opened counts 0.
///
/// Includes may branch without end: a sequence that includes itself ten times names a thousand
/// million others by the depth of 8. Since what a file adds follows from its path and its depth,
/// each is worked out once.
///
/// Used for one answer, on one thread.
class K4CMNCORE_EXPORT SequenceDuration {
 public:
    /// @param file  the sequence, open; must outlive the object. Its frame that was fetched last is
    ///              gone afterwards.
    /// @param path  the sequence's path.
    /// @param byPath the file was opened by its path, and its stored run time counts; otherwise it
    ///              is an object that somebody gave, whose run time is worked out from its frames.
    SequenceDuration(CK4SequenceFile& file, std::string path, bool byPath);

    /// The duration in milliseconds.
    std::uint64_t Milliseconds();

    /// The duration of one file with all that it includes, in milliseconds: one step of the whole.
    /// @param path  a file that is opened for it; empty for the sequence itself.
    /// @param depth how many includes lie between the sequence and this file; from 8 on no more
    ///              are followed.
    std::uint64_t CalcDuration(const std::string& path, int depth);

 private:
    /// A file's part of the sum, and the path that is remembered behind it.
    struct Part {
        std::uint64_t milliseconds = 0;
        std::string remembered;
    };

    std::uint64_t Includes(CK4SequenceFile& file, int frames, int depth);
    std::uint64_t Include(const std::string& field, int depth);

    CK4SequenceFile& m_file;
    const std::string m_path;
    const bool m_byPath;
    std::string m_remembered;
    std::map<std::pair<std::string, int>, Part> m_known;
};

}  // namespace k4cmn
