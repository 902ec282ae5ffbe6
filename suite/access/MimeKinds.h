#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "k4cmndlg/filestore/contracts/FileKinds.h"

namespace k4suite {

/// The kinds of files by the desktop's MIME database: their names in the user's language, and their
/// icons. A name that it tells nothing of has no kind; the suite's own files are such.
///
/// The database takes long to say that it knows nothing of a name, and a list asks it for the kinds
/// of 100,000. So what it tells of names with one ending is kept as long as the object lives, but
/// for those few that it knows by more than their ending ("README*").
/// Threads: any.
class MimeKinds final : public k4cmn::FileKinds {
 public:
    std::string TypeName(const std::string& path) override;
    std::string IconName(const std::string& path) override;

 private:
    struct Kind {
        std::string type;
        std::string icon;
    };
    /// What the patterns of the database say of names in general.
    struct Patterns {
        std::vector<std::string> odd;    ///< those that aren't "*" and an ending
        std::size_t dotsOfAnEnding = 0;  ///< at the most; 0 if the patterns can't be read
    };

    static Kind Ask(std::string_view name);
    static Patterns ReadPatterns();
    Kind KindOf(const std::string& path);
    std::optional<std::string_view> EndingOf(const std::string& name);

    std::mutex m_guard;  ///< over all that follows
    std::optional<Patterns> m_patterns;
    std::unordered_map<std::string, Kind> m_kinds;  ///< by the ending
};

}  // namespace k4suite
