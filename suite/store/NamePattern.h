#pragma once

#include <string>
#include <string_view>

namespace k4suite {

/// A pattern for names, by the rules that the store was made for: case doesn't count, '*' stands
/// for any characters (none too), '?' for exactly one, and "*.*" as a whole matches every name.
/// Threads: an object belongs to one thread, since matching uses working space of its own.
class NamePattern {
 public:
    explicit NamePattern(std::string_view pattern);

    /// Whether the pattern matches a whole name. A name that isn't UTF-8 never matches.
    bool Matches(std::string_view name);

 private:
    bool MatchesFolded() const;

    enum class Kind { Every, Ending, Any, None };
    Kind m_kind = Kind::Any;
    std::string m_ending;     ///< Ending: what follows the only '*', in lower case, plain ASCII
    std::u32string m_wanted;  ///< Any: the pattern, folded
    std::u32string m_name;    ///< working space
};

}  // namespace k4suite
