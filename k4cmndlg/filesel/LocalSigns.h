#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The signs that are configured on this system, by their sign types. Read once, when it is made.
class K4CMNCORE_EXPORT LocalSigns {
 public:
    LocalSigns();

    /// The names of the signs that have a sign type, in the order of the settings. Case doesn't
    /// count.
    std::vector<std::string> NamesOf(std::string_view signType) const;

    /// What stands behind a sign type in the tree: " , (" name ")" for each sign that has it, in
    /// the order of the settings; empty if none has.
    std::string NamesBehind(std::string_view signType) const;

 private:
    /// By sign type without case.
    std::unordered_map<std::string, std::vector<std::string>> m_names;
};

}  // namespace k4cmn
