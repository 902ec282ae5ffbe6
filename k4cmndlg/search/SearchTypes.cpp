#include "k4cmndlg/search/SearchTypes.h"

#include <algorithm>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/PathParts.h"

namespace k4cmn {

namespace {

constexpr std::array<const char*, kSearchExtensions.size()> kFoundTypeNames{
    "K4400 Seq", "K4400 Sched", "K4400 Script", "K3300 Seq"};

bool IsKnown(int type) {
    return type >= 0 && type < static_cast<int>(kSearchExtensions.size());
}

}  // namespace

int GetFileType(std::string_view path) {
    const std::string extension = SplitPath(path).extension;
    const std::string_view letters = std::string_view(extension).substr(extension.empty() ? 0 : 1);
    const auto found =
        std::find_if(kSearchExtensions.begin(), kSearchExtensions.end(),
                     [&](std::string_view known) { return IsSameWithoutCase(known, letters); });
    return found == kSearchExtensions.end() ? kUnknownSearchType
                                            : static_cast<int>(found - kSearchExtensions.begin());
}

std::string_view SearchExtension(int type) {
    return IsKnown(type) ? kSearchExtensions[static_cast<std::size_t>(type)] : std::string_view();
}

const char* FoundTypeName(int type) {
    return IsKnown(type) ? kFoundTypeNames[static_cast<std::size_t>(type)] : "Unknown";
}

}  // namespace k4cmn
