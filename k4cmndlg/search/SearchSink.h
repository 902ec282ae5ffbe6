#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace k4cmn {

/// A file that a search has found.
struct FoundFileRow {
    std::string name;           ///< what the first column shows
    std::string path;           ///< the full path
    std::uint64_t size = 0;     ///< bytes
    std::int64_t modified = 0;  ///< seconds since 1970 (UTC)
    int type = -1;              ///< index in kSearchExtensions, or -1

    bool operator==(const FoundFileRow&) const = default;
};

/// What a search fills, and what the next one narrows.
/// Threads: that of the search.
class SearchSink {
 public:
    virtual ~SearchSink() = default;

    /// The full paths of all rows, in the order that they are listed in now.
    virtual std::vector<std::string> Paths() const = 0;
    /// Removes all rows.
    virtual void Clear() = 0;
    /// Adds rows, in the order in which their files were found; where they are listed is the
    /// sink's business.
    virtual void Add(std::vector<FoundFileRow> rows) = 0;
};

}  // namespace k4cmn
