#pragma once

#include <cstdint>
#include <string>

namespace k4suite {

/// What a person answered to a question of a file operation.
enum class FileAnswer : std::uint8_t { Yes, YesToAll, No, NoToAll, Cancel };

/// One question of a file operation.
struct FileQuestion {
    std::string title;     ///< what is being done, in a word or two
    std::string text;      ///< plain text; names of files appear as they are
    bool several = false;  ///< more such questions may come: the answers "to all" make sense
    bool final = false;    ///< Yes can't be undone: the cautious answer should be the default

    bool operator==(const FileQuestion&) const = default;
};

/// How a file operation asks and reports, whoever shows it.
///
/// Order: any number of Confirm(); Begin() before the first Progress() and End() after the last,
/// once each. Confirm() may come between them.
/// Threads: called on the thread that runs the operation.
class FileOperationUi {
 public:
    virtual ~FileOperationUi() = default;

    /// Asks, and waits for the answer. YesToAll and NoToAll only come where `several` is set.
    virtual FileAnswer Confirm(const FileQuestion& question) = 0;

    /// Progress begins.
    /// @param title what is being done, in a word or two.
    virtual void Begin(const std::string& title) = 0;
    /// How far it is.
    /// @param done, total steps of any unit (bytes, items); total may be 0.
    /// @param name  the file that is at work.
    /// @return whether to go on; false cancels the operation.
    virtual bool Progress(std::uint64_t done, std::uint64_t total, const std::string& name) = 0;
    /// Progress is over, by whichever end.
    virtual void End() = 0;
};

}  // namespace k4suite
